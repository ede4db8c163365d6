// SPDX-License-Identifier: Apache-2.0
//
// A metafile is a list of drawing actions. Each has its length, so actions
// without text are skipped. A text action holds the text of the whole
// paragraph, the part of it that is drawn, its position, and the end of each
// character; comment actions between them mark the ends of lines and
// paragraphs.
#include "engine/layout/MetafileText.h"

#include <cmath>
#include <cstring>
#include <numbers>
#include <optional>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <utility>

namespace lectern::engine {

namespace {

using Bytes = std::span<const unsigned char>;

enum Action : uint16_t {
    TextArray = 113,
    Font = 138,
    Push = 139,
    Pop = 140,
    LayoutMode = 149,
    Comment = 512,
};

// Parts of the state that Push saves for Pop.
constexpr uint16_t KEEPS_FONT = 0x4;
constexpr uint16_t KEEPS_LAYOUT_MODE = 0x800;
constexpr uint32_t RIGHT_TO_LEFT_MODE = 0x1;
constexpr size_t DEEPEST_STATE = 1024;

// Reads little-endian numbers. After a read past the end ok() is false, and the
// number read is 0.
class Reader {
public:
    explicit Reader(Bytes bytes) : mRest(bytes) {}

    bool ok() const { return mOk; }
    bool atEnd() const { return mRest.empty() || !mOk; }

    Bytes take(uint64_t count) {
        if (count > mRest.size()) {
            mOk = false;
            return {};
        }
        const Bytes taken = mRest.first(static_cast<size_t>(count));
        mRest = mRest.subspan(static_cast<size_t>(count));
        return taken;
    }
    template<class Number>
    Number number() {
        std::make_unsigned_t<Number> value = 0;
        const Bytes bytes = take(sizeof(Number));
        for (size_t i = 0; i < bytes.size(); ++i) {
            value = static_cast<decltype(value)>(value | static_cast<decltype(value)>(bytes[i]) << (8 * i));
        }
        return static_cast<Number>(value);
    }
    // Reads a part that begins with a version and its length.
    Reader part() {
        number<uint16_t>(); // version
        return Reader(take(number<uint32_t>()));
    }
    std::u16string text(uint64_t units) {
        const Bytes bytes = take(2 * units);
        std::u16string text(bytes.size() / 2, u'\0');
        for (size_t i = 0; i < text.size(); ++i) {
            text[i] = static_cast<char16_t>(bytes[2 * i] | bytes[2 * i + 1] << 8);
        }
        return text;
    }

private:
    Bytes mRest;
    bool mOk = true;
};

struct State {
    double height = 0;
    double angle = 0;
    bool rightToLeft = false;
};

// Assembles paragraphs from the parts that are drawn.
class Composer {
public:
    void add(TextRun run, const std::u16string& source, uint32_t first, uint32_t count) {
        if (!mInShape && !mParagraph.runs.empty() && source != mSource) {
            endParagraph();
        }
        const bool continues = !mParagraph.runs.empty() && source == mSource && first >= mSourceEnd;
        if (continues) { // characters that are not drawn, such as a line break
            mParagraph.text.append(source, mSourceEnd, first - mSourceEnd);
        }
        run.start = static_cast<uint32_t>(mParagraph.text.size());
        run.line = mLine;
        mParagraph.text.append(source, first, count);
        if (mLink) {
            addToLink({run.start, run.end()});
        }
        mParagraph.runs.push_back(std::move(run));
        mSource = source;
        mSourceEnd = first + count;
    }

    // The text up to the next call is a link. Without an address it is none.
    void setLink(std::u16string address) {
        mLink = address.empty() ? std::nullopt : std::optional(std::move(address));
        mContinuesLink = false;
    }

    void comment(std::string_view words) {
        if (words == "XTEXT_EOL") {
            ++mLine;
        } else if (words == "XTEXT_EOP") {
            endParagraph();
        } else if (words == "XTEXT_PAINTSHAPE_BEGIN" || words == "XTEXT_PAINTSHAPE_END") {
            endParagraph();
            mInShape = words == "XTEXT_PAINTSHAPE_BEGIN";
        }
    }

    DrawnText take() {
        endParagraph();
        return std::move(mWhole);
    }

private:
    void addToLink(CharacterRange characters) {
        if (mContinuesLink) {
            mParagraph.links.back().characters.end = characters.end;
        } else {
            mParagraph.links.push_back({characters, *mLink});
        }
        mContinuesLink = true;
    }

    void endParagraph() {
        mContinuesLink = false;
        DrawnText paragraph = std::exchange(mParagraph, {});
        mSource.clear();
        mSourceEnd = 0;
        mLine = 0;
        if (paragraph.runs.empty() || isShadow(paragraph)) {
            return;
        }
        mWhole.append(paragraph);
    }

    bool isShadow(const DrawnText& paragraph) {
        const TextRun& first = paragraph.runs.front();
        const auto [seen, isNew] = mSeen.try_emplace(paragraph.text, first.x, first.y);
        if (isNew) {
            return false;
        }
        const auto [x, y] = std::exchange(seen->second, {first.x, first.y});
        return std::hypot(x - first.x, y - first.y) < first.height / 2;
    }

    DrawnText mWhole;
    DrawnText mParagraph;
    std::u16string mSource; // the whole text that the paragraph's last run is part of
    uint32_t mSourceEnd = 0;
    uint32_t mLine = 0;
    bool mInShape = false;
    std::optional<std::u16string> mLink; // its address, inside a link
    bool mContinuesLink = false;         // ... of which the paragraph has a part
    std::unordered_map<std::u16string, std::pair<double, double>> mSeen; // paragraphs and their starts
};

void readFont(Reader action, State& state) {
    Reader font = action.part();
    for (int name = 0; name < 2; ++name) { // family and style
        font.take(font.number<uint16_t>());
    }
    font.number<int32_t>(); // width
    const auto height = font.number<int32_t>();
    font.take(9 * sizeof(uint16_t)); // other attributes
    const auto orientation = font.number<int16_t>();
    if (!font.ok()) {
        return;
    }
    state.height = std::abs(static_cast<double>(height));
    state.angle = orientation * std::numbers::pi / 1800;
}

void readText(Reader action, const State& state, Composer& composer) {
    TextRun run{0, 0, 0, 0, state.height, state.angle, state.rightToLeft, {}};
    run.x = action.number<int32_t>();
    run.y = action.number<int32_t>();
    const std::u16string source = action.text(action.number<uint32_t>());
    const uint32_t first = action.number<uint16_t>();
    const uint32_t count = action.number<uint16_t>();
    const auto ends = action.number<uint32_t>();
    if (!action.ok() || count == 0 || ends < count || first + count > source.size()) {
        return;
    }
    run.ends.reserve(count);
    for (uint32_t i = 0; i < count; ++i) {
        run.ends.push_back(action.number<int32_t>());
    }
    if (action.ok()) {
        composer.add(std::move(run), source, first, count);
    }
}

class Player {
public:
    void play(uint16_t type, Reader action) {
        switch (type) {
        case TextArray:
            readText(action, mState, mComposer);
            break;
        case Font:
            readFont(action, mState);
            break;
        case LayoutMode:
            mState.rightToLeft = (action.number<uint32_t>() & RIGHT_TO_LEFT_MODE) != 0;
            break;
        case Push:
            if (mKept.size() < DEEPEST_STATE) {
                mKept.emplace_back(action.number<uint16_t>(), mState);
            }
            break;
        case Pop:
            pop();
            break;
        case Comment:
            comment(action);
            break;
        default:
            break;
        }
    }
    DrawnText take() { return mComposer.take(); }

private:
    // A comment about a link comes with its address.
    void comment(Reader action) {
        const Bytes bytes = action.take(action.number<uint16_t>());
        const std::string_view words(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        if (words == "FIELD_SEQ_BEGIN") {
            action.number<int32_t>();
            mComposer.setLink(action.text(action.number<uint32_t>() / 2));
        } else if (words == "FIELD_SEQ_END") {
            mComposer.setLink({});
        } else {
            mComposer.comment(words);
        }
    }

    void pop() {
        if (mKept.empty()) {
            return;
        }
        const auto& [keeps, state] = mKept.back();
        if ((keeps & KEEPS_FONT) != 0) {
            mState.height = state.height;
            mState.angle = state.angle;
        }
        if ((keeps & KEEPS_LAYOUT_MODE) != 0) {
            mState.rightToLeft = state.rightToLeft;
        }
        mKept.pop_back();
    }

    State mState;
    std::vector<std::pair<uint16_t, State>> mKept;
    Composer mComposer;
};

} // namespace

DrawnText readMetafileText(Bytes metafile) {
    constexpr std::string_view SIGNATURE = "VCLMTF";
    Reader reader(metafile);
    const Bytes head = reader.take(SIGNATURE.size());
    Player player;
    if (reader.ok() && std::memcmp(head.data(), SIGNATURE.data(), SIGNATURE.size()) == 0) {
        reader.part(); // attributes of the whole metafile
        while (!reader.atEnd()) {
            const auto type = reader.number<uint16_t>();
            const Reader action = reader.part();
            if (reader.ok()) {
                player.play(type, action);
            }
        }
    }
    return player.take();
}

} // namespace lectern::engine
