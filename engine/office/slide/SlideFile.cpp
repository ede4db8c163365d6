// SPDX-License-Identifier: Apache-2.0
#include "engine/office/slide/SlideFile.h"

#include "engine/office/FileUrl.h"

#include <com/sun/star/embed/OLESimpleStorage.hpp>
#include <com/sun/star/io/XSeekable.hpp>
#include <com/sun/star/io/XStream.hpp>
#include <com/sun/star/packages/zip/ZipFileAccess.hpp>
#include <com/sun/star/ucb/SimpleFileAccess.hpp>

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace lectern::engine {

using css::io::XInputStream;
using css::uno::Reference;
using css::uno::Sequence;
using css::uno::UNO_QUERY_THROW;

namespace {

using Bytes = std::span<const sal_Int8>;

Sequence<sal_Int8> wholeOf(const Reference<XInputStream>& stream) {
    constexpr sal_Int32 MOST = sal_Int32{64} << 20; // bytes
    Sequence<sal_Int8> bytes;
    stream->readBytes(bytes, MOST);
    return bytes;
}

std::string partOf(const Reference<css::packages::zip::XZipFileAccess2>& package, const std::string& name) {
    const OUString part(name.data(), static_cast<sal_Int32>(name.size()), RTL_TEXTENCODING_UTF8);
    const Sequence<sal_Int8> bytes =
        wholeOf(Reference<XInputStream>(package->getByName(part), UNO_QUERY_THROW));
    return {reinterpret_cast<const char*>(bytes.getConstArray()), static_cast<size_t>(bytes.getLength())};
}

// The first tag of an XML text, without its brackets, that meets the condition;
// empty when there is none.
template<class Condition>
std::string_view firstTag(std::string_view xml, Condition meets) {
    for (size_t at = xml.find('<'); at != std::string_view::npos; at = xml.find('<', at + 1)) {
        const std::string_view tag = xml.substr(at + 1, xml.find('>', at) - at - 1);
        if (meets(tag)) {
            return tag;
        }
    }
    return {};
}

// The name of the part that lists the slides; it is known by its type.
std::string presentationPart(const std::string& types) {
    constexpr std::string_view NAME = "PartName=\"/";
    const std::string_view tag = firstTag(
        types, [](std::string_view each) { return each.find(".main+xml") != std::string_view::npos; });
    const size_t name = tag.find(NAME);
    if (name == std::string_view::npos) {
        return "ppt/presentation.xml"; // the usual name
    }
    const std::string_view rest = tag.substr(name + NAME.size());
    return std::string(rest.substr(0, rest.find('"')));
}

// A package may have parts of slides that its list leaves out. An entry of the
// list names a part by the id of a relationship.
bool hasSlidesInPackage(const Reference<css::packages::zip::XZipFileAccess2>& package) {
    const std::string main = presentationPart(partOf(package, "[Content_Types].xml"));
    const std::string list = partOf(package, main);
    return !firstTag(list, [](std::string_view tag) {
                return tag.substr(0, tag.find_first_of(" \t\r\n")).ends_with("sldId") &&
                       tag.find(":id=") != std::string_view::npos;
            }).empty();
}

// A record of the binary format: its header and its content, which may consist
// of records.
struct Record {
    uint16_t type;
    uint16_t instance;
    Bytes content;
};

// Removes the first record from `rest`; returns nothing when it is not complete.
std::optional<Record> takeRecord(Bytes& rest) {
    constexpr size_t HEADER = 8;
    if (rest.size() < HEADER) {
        return std::nullopt;
    }
    const auto number = [&](size_t at, size_t length) {
        uint32_t value = 0;
        for (size_t i = 0; i < length; ++i) {
            value |= uint32_t{static_cast<uint8_t>(rest[at + i])} << (8 * i);
        }
        return value;
    };
    const size_t length = number(4, 4);
    if (length > rest.size() - HEADER) {
        return std::nullopt;
    }
    const Record record{static_cast<uint16_t>(number(2, 2)), static_cast<uint16_t>(number(0, 2) >> 4),
                        rest.subspan(HEADER, length)};
    rest = rest.subspan(HEADER + length);
    return record;
}

// Whether there are records of these types, each inside a record of the
// previous type.
bool holds(Bytes records, std::span<const uint16_t> types) {
    while (const std::optional<Record> record = takeRecord(records)) {
        if (record->type == types.front() && record->instance == 0 &&
            (types.size() == 1 || holds(record->content, types.subspan(1)))) {
            return true;
        }
    }
    return false;
}

bool hasSlidesInStorage(const Reference<css::container::XNameAccess>& storage) {
    constexpr uint16_t DOCUMENT = 1000;
    constexpr uint16_t LIST_OF_SLIDES = 4080; // of instance 0; other instances list masters and notes
    constexpr uint16_t SLIDE = 1011;
    constexpr uint16_t PATH[] = {DOCUMENT, LIST_OF_SLIDES, SLIDE};
    const Reference<css::io::XStream> stream(storage->getByName("PowerPoint Document"), UNO_QUERY_THROW);
    const Sequence<sal_Int8> bytes = wholeOf(stream->getInputStream());
    return holds({bytes.getConstArray(), static_cast<size_t>(bytes.getLength())}, PATH);
}

bool hasSlides(const Reference<css::uno::XComponentContext>& context, const OUString& url) {
    const auto stream = css::ucb::SimpleFileAccess::create(context)->openFileRead(url);
    Sequence<sal_Int8> signature;
    if (stream->readBytes(signature, 2) == 2 && signature[0] == 'P' && signature[1] == 'K') {
        return hasSlidesInPackage(css::packages::zip::ZipFileAccess::createWithURL(context, url));
    }
    const Reference<css::io::XSeekable> start(stream, UNO_QUERY_THROW);
    start->seek(0);
    return hasSlidesInStorage(
        {css::embed::OLESimpleStorage::createFromInputStream(context, stream, true), UNO_QUERY_THROW});
}

} // namespace

bool isWithoutSlides(const Reference<css::uno::XComponentContext>& context, const std::string& path) {
    try {
        return !hasSlides(context, OUString::createFromAscii(fileUrl(path).c_str()));
    } catch (const css::uno::Exception&) {
        return false;
    }
}

} // namespace lectern::engine
