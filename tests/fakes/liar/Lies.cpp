// SPDX-License-Identifier: Apache-2.0
#include "tests/fakes/liar/Lies.h"

#include <climits>

namespace lectern::test {
namespace {

constexpr unsigned SUCCESSES = 7; // of 8 answers

unsigned elementCount(Choices& choices) {
    constexpr unsigned COUNTS[] = {0, 0, 1, 2, 3, 4, 4, 6, 8, 12, 17, 40, 100, 1000, 4096, 70000};
    return COUNTS[choices.below(std::size(COUNTS))];
}

GVariant* arrayOf(const GVariantType* elements, Choices& choices) {
    // The end of a long array repeats its start, or it would use up all the choices.
    constexpr unsigned DIFFERENT = 64;
    std::vector<GLibHolder<GVariant>> values;
    const unsigned count = elementCount(choices);
    std::vector<GVariant*> all;
    for (unsigned i = 0; i < count; ++i) {
        if (i < DIFFERENT) {
            values.push_back(lieOf(elements, choices));
        }
        all.push_back(values[i % DIFFERENT].get());
    }
    return g_variant_new_array(elements, all.data(), all.size());
}

GVariant* tupleOf(const GVariantType* type, Choices& choices) {
    std::vector<GLibHolder<GVariant>> values;
    std::vector<GVariant*> all;
    for (const GVariantType* item = g_variant_type_first(type); item != nullptr;
         item = g_variant_type_next(item)) {
        all.push_back(values.emplace_back(lieOf(item, choices)).get());
    }
    return g_variant_new_tuple(all.data(), all.size());
}

GVariant* plainLie(const GVariantType* type, Choices& choices) {
    const std::uint32_t number = choices.number();
    switch (*g_variant_type_peek_string(type)) {
    case 'i':
        return g_variant_new_int32(static_cast<gint32>(number));
    case 'u':
        return g_variant_new_uint32(number);
    case 'q':
        return g_variant_new_uint16(static_cast<guint16>(number));
    case 'x':
        return g_variant_new_int64(static_cast<gint64>(number) * static_cast<gint32>(choices.number()));
    case 'b':
        return g_variant_new_boolean((number & 1) != 0 ? TRUE : FALSE);
    case 'a':
        return arrayOf(g_variant_type_element(type), choices);
    case '(':
        return tupleOf(type, choices);
    default:
        return g_variant_new_string("?");
    }
}

} // namespace

unsigned Choices::byte() {
    if (mBytes.empty()) {
        return 0;
    }
    const std::size_t at = mNext++;
    return static_cast<unsigned char>(mBytes[at % mBytes.size()] + static_cast<char>(at / mBytes.size()));
}

std::uint32_t Choices::number() {
    constexpr std::uint32_t EDGES[] = {0,     1,     2,          3,          5,         10,     20,
                                       50,    100,   480,        800,        1500,      0xFFFF, 65536,
                                       16384, 16385, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    const unsigned which = below(std::size(EDGES) + 4);
    if (which < std::size(EDGES)) {
        return EDGES[which];
    }
    return byte() | byte() << 8U | byte() << 16U | byte() << 24U;
}

GLibHolder<GVariant> lieOf(const GVariantType* type, Choices& choices) {
    return GLibHolder<GVariant>(g_variant_ref_sink(plainLie(type, choices)));
}

GLibHolder<GVariant> lyingAnswer(const GDBusMethodInfo& method, bool succeeds, Choices& choices) {
    std::vector<GLibHolder<GVariant>> values;
    std::vector<GVariant*> all;
    const bool isSuccess = succeeds || choices.below(SUCCESSES + 1) < SUCCESSES;
    for (GDBusArgInfo** argument = method.out_args; *argument != nullptr; ++argument) {
        const auto* const type = reinterpret_cast<const GVariantType*>((*argument)->signature);
        const bool isResult = std::string((*argument)->name) == "result";
        values.push_back(isResult && isSuccess
                             ? GLibHolder<GVariant>(g_variant_ref_sink(g_variant_new_int32(0)))
                             : lieOf(type, choices));
        all.push_back(values.back().get());
    }
    return GLibHolder<GVariant>(g_variant_ref_sink(g_variant_new_tuple(all.data(), all.size())));
}

} // namespace lectern::test
