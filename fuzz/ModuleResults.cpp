// SPDX-License-Identifier: Apache-2.0
// Views whose rendering modules return anything. Input: bytes that choose the document's
// kind, what a client does, and what each function of the module returns: its code,
// numbers, texts and arrays. Array sizes are true, because a module in the same process
// has to be believed about its own memory.
#include "channel/ServiceQueue.h"
#include "fuzz/FuzzedService.h"
#include "modules/SSTGFunc.h"
#include "modules/STGFunc.h"
#include "modules/WTGFunc.h"
#include "service/Registry.h"
#include "service/RenderWorker.h"
#include "tests/fakes/liar/Lies.h"

#include <algorithm>
#include <deque>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using lectern::test::Choices;

Choices gChoices{""};
constexpr int32_t LONGEST = 32; // units that a text begins with
int gDocument = 0;              // its address is every document
constexpr int32_t OTHER_CODES[] = {1, 9, 10, -1};

// The arrays that were returned, until the end of the input.
std::deque<std::vector<module_rect>> gRectangles;
std::deque<std::vector<unsigned char>> gArrays;

int32_t number() {
    return static_cast<int32_t>(gChoices.number());
}

// The elements of the array that one call returns, before and after it is made.
struct Call {
    int32_t count = 0;
    bool hasArray = false;
};

template<class Record>
void fillRecord(Record& record) {
    if constexpr (requires { record.rectangles; }) {
        std::vector<module_rect>& own = gRectangles.emplace_back(gChoices.below(4));
        for (module_rect& rectangle : own) {
            rectangle = {number(), number(), number(), number()};
        }
        record.rectangles = own.empty() ? nullptr : own.data();
        record.rectangle_count = static_cast<uint32_t>(own.size());
    } else {
        auto* const words = reinterpret_cast<int32_t*>(&record);
        std::generate(words, words + sizeof record / sizeof *words, number);
    }
    if constexpr (requires { record.position; }) {
        record.position = gChoices.number();
    }
    if constexpr (std::is_same_v<Record, wtg_click_info>) {
        record.type = static_cast<int32_t>(gChoices.below(9));
        record.a = 0; // an address that a module returns has to be one
    }
}

template<class Record>
void fillArray(Call& call, const Record** array) {
    if (array == nullptr) {
        return;
    }
    call.hasArray = true;
    call.count = std::is_same_v<Record, wtg_click_info> ? 1 : static_cast<int32_t>(gChoices.below(40));
    auto& bytes = gArrays.emplace_back(static_cast<size_t>(call.count) * sizeof(Record) + 1);
    auto* const records = reinterpret_cast<Record*>(bytes.data());
    std::for_each(records, records + call.count, [](Record& record) { fillRecord(record); });
    *array = gChoices.below(8) == 0 ? nullptr : records;
}

template<class Argument>
void findArray(Call& call, Argument argument) {
    if constexpr (std::is_pointer_v<Argument> && std::is_pointer_v<std::remove_pointer_t<Argument>>) {
        using Record = std::remove_const_t<std::remove_pointer_t<std::remove_pointer_t<Argument>>>;
        if constexpr (std::is_class_v<Record>) {
            fillArray(call, const_cast<const Record**>(argument));
        }
    }
}

template<class Argument>
void fillOutput(const Call& call, Argument argument, int32_t& capacity) {
    if constexpr (std::is_same_v<Argument, int32_t>) {
        capacity = argument;
    } else if constexpr (std::is_same_v<Argument, int32_t*>) {
        if (argument != nullptr) {
            *argument = call.hasArray ? call.count : number();
        }
    } else if constexpr (std::is_same_v<Argument, uint32_t*> || std::is_same_v<Argument, time_t*> ||
                         std::is_same_v<Argument, uint8_t*>) {
        if (argument != nullptr) {
            *argument = static_cast<std::remove_pointer_t<Argument>>(gChoices.number());
        }
    }
}

// Writes a text without a terminator.
template<class Argument>
void fillText(Argument argument, int32_t capacity) {
    if constexpr (std::is_same_v<Argument, uint16_t*>) {
        // The first ones, because a list has thousands of texts; a terminator need not follow.
        for (int32_t i = 0; argument != nullptr && i < std::min(capacity / 2, LONGEST); ++i) {
            argument[i] = static_cast<uint16_t>(i < 8 ? gChoices.number() : 'a');
        }
    }
}

template<class... Arguments>
int32_t lie(Arguments... arguments) {
    if (gChoices.below(8) == 0) {
        return OTHER_CODES[gChoices.below(std::size(OTHER_CODES))];
    }
    Call call;
    int32_t capacity = 0;
    (findArray(call, arguments), ...);
    (fillOutput(call, arguments, capacity), ...);
    (fillText(arguments, capacity), ...);
    return 0;
}

template<class... Arguments>
int32_t openDocument(Arguments... arguments) {
    void** const doc = std::get<sizeof...(Arguments) - 1>(std::tuple(arguments...));
    *doc = &gDocument;
    return 0;
}

int32_t closeDocument(void** doc) {
    *doc = nullptr;
    return 0;
}

} // namespace

// In place of those that load the modules.
#define LECTERN_LIE(name) this->name = lie;

void* WTGFunc::SetFunctionPointers() {
    WTG_FUNCTIONS(LECTERN_LIE)
    wtg_open_file = openDocument;
    wtg_close_file = closeDocument;
    return nullptr;
}

void* STGFunc::SetFunctionPointers() {
    STG_FUNCTIONS(LECTERN_LIE)
    stg_open_file = openDocument;
    stg_close_file = closeDocument;
    return nullptr;
}

void* SSTGFunc::SetFunctionPointers() {
    SSTG_FUNCTIONS(LECTERN_LIE)
    sstg_open_file = openDocument;
    sstg_close_file = closeDocument;
    return nullptr;
}

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    startFuzzedService();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr int STEPS = 24;
    gChoices = Choices({reinterpret_cast<const char*>(data), size});
    {
        const FuzzedDocument document(nullptr, 0, gChoices.below(FuzzedDocument::KINDS));
        for (int step = 0; step < STEPS && size > 0; ++step) {
            if (gChoices.below(3) == 0) {
                callMethod(gChoices.below(256), anyPayload(gChoices.below(256), gChoices.below(256)));
            } else {
                ClientServerMessage message(_PAINT + static_cast<long>(gChoices.below(_WIDE_MODE)), 0);
                message.setReals(gChoices.below(64) / 16.0, 0);
                if (message.type < _GESTURE_START || message.type > _GESTURE_END) {
                    message.x = number();
                    message.y = number();
                }
                serveMessage(message);
            }
            serveMessage(ClientServerMessage(_PAINT, 0));
        }
    }
    gRectangles.clear();
    gArrays.clear();
    return 0;
}
