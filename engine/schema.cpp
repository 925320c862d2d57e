#include "schema.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <sstream>

#include "error.h"
#include "index_order.h"
#include "types.h"

namespace engine {

namespace {

/// Of a language and of a code set: that of the library's language context.
constexpr unsigned char kDefault = 255;

/// Words and signs of a schema, with their places.
class Words {
public:
    explicit Words(std::string_view aText) : text(aText) { Advance(); }

    bool AtEnd() const { return word.empty(); }
    std::string_view Peek() const { return word; }
    /// Whether the next word stands on the line of the last one taken.
    bool SameLine() const { return !AtEnd() && sameLine; }
    std::size_t Position() const { return position; }

    std::string_view Take() {
        const std::string_view taken = word;
        Advance();
        return taken;
    }

    bool TakeIf(std::string_view wanted) {
        if (word != wanted) return false;
        Advance();
        return true;
    }

    [[noreturn]] void Fail(const std::string& message) const { throw TextError(message, position); }

private:
    std::string_view text;
    std::size_t at = 0;
    std::string_view word;
    std::size_t position = 0;
    bool sameLine = false;

    static bool IsNameCharacter(char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
    }

    void Advance() {
        sameLine = true;
        while (at < text.size() && (std::strchr(" \t\r\n;,", text[at]) != nullptr || text[at] == '#')) {
            if (text[at] == '#') {
                at = std::min(text.find('\n', at), text.size());
            } else {
                if (std::strchr("\n;,", text[at]) != nullptr) sameLine = false;
                ++at;
            }
        }
        position = at;
        if (at < text.size() && !IsNameCharacter(text[at])) ++at;
        if (at == position)
            while (at < text.size() && IsNameCharacter(text[at])) ++at;
        word = text.substr(position, at - position);
    }
};

std::string Name(Words& words, const char* what) {
    const std::string_view word = words.Peek();
    const bool digitFirst = !word.empty() && word[0] >= '0' && word[0] <= '9';
    if (word.empty() || digitFirst || std::strchr("{}[]", word[0]) != nullptr)
        words.Fail(std::string("the name of ") + what + " is expected here");
    for (const char c : word)
        if (c != '_' && std::strchr("0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ", c) == nullptr)
            words.Fail("names are letters, digits and \"_\"");
    return std::string(words.Take());
}

unsigned Number(Words& words, unsigned least, unsigned greatest, const char* what) {
    const std::string_view word = words.Peek();
    unsigned number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size() || number < least || number > greatest)
        words.Fail(std::string(what) + " is a number from " + std::to_string(least) + " to " +
                   std::to_string(greatest));
    words.Take();
    return number;
}

void ReadOptions(Words& words, Attribute& attribute) {
    constexpr unsigned greatestByte = 255;
    while (words.SameLine()) {
        const std::size_t position = words.Position();
        if (words.TakeIf("index")) {
            attribute.index.emplace();
            if (const char* why = WhyNotIndexed(attribute)) throw TextError(why, position);
        } else if (attribute.index && IsString(attribute.type) && words.TakeIf("nocase")) {
            attribute.index->ignoreCase = true;
        } else if (attribute.index && IsString(attribute.type) && words.TakeIf("noaccent")) {
            attribute.index->ignoreAccent = true;
        } else if (IsString(attribute.type) && words.TakeIf("language")) {
            attribute.language = static_cast<unsigned char>(Number(words, 0, greatestByte, "a language"));
        } else if (IsString(attribute.type) && words.TakeIf("codeset")) {
            attribute.codeSet = static_cast<unsigned char>(Number(words, 0, greatestByte, "a code set"));
        } else if (words.Peek() == "}") {
            return;
        } else {
            words.Fail("attributes of this type have no \"" + std::string(words.Peek()) + "\" here");
        }
    }
}

Attribute ReadAttribute(Words& words) {
    constexpr unsigned mostElements = 65535;
    Attribute attribute;
    attribute.name = Name(words, "an attribute");
    if (!words.SameLine()) words.Fail("the type of \"" + attribute.name + "\" is missing");
    const std::string typeName(words.Peek());
    if (Types().Name2KyTypeId(typeName.c_str(), attribute.type) != 0 || attribute.type == KyRES_T)
        words.Fail("there is no type \"" + typeName + "\"");
    words.Take();
    if (words.SameLine() && words.TakeIf("[")) {
        attribute.count = Number(words, 1, mostElements, "the number of elements");
        if (!words.TakeIf("]")) words.Fail("\"]\" is expected here");
    }
    ReadOptions(words, attribute);
    return attribute;
}

Class ReadClass(Words& words) {
    if (!words.TakeIf("class")) words.Fail("\"class\" is expected here");
    Class result;
    result.name = Name(words, "a class");
    if (!words.TakeIf("{")) words.Fail("\"{\" is expected here");
    while (words.Peek() != "}") {
        if (words.AtEnd()) words.Fail("the class \"" + result.name + "\" does not end");
        const std::size_t position = words.Position();
        Attribute attribute = ReadAttribute(words);
        if (result.Find(attribute.name))
            throw TextError("there is an attribute \"" + attribute.name + "\" already", position);
        result.attributes.push_back(std::move(attribute));
    }
    if (result.attributes.empty()) words.Fail("the class \"" + result.name + "\" has no attributes");
    words.Take();
    return result;
}

template <class Named>
std::optional<std::size_t> FindByName(const std::vector<Named>& all, std::string_view name) {
    const auto found = std::ranges::find(all, name, &Named::name);
    if (found == all.end()) return std::nullopt;
    return static_cast<std::size_t>(found - all.begin());
}

}  // namespace

const char* WhyNotOrdered(char type) {
    // Times less than a second apart are equal, and that is no order: x.4 and x.9 are equal, x.9 and the next .4 too.
    if (type != D_TIME_T && type != D_TIMESTAMP_T) return nullptr;
    return "times of this type cannot be sorted by: their order does not tell the parts of a second apart";
}

const char* WhyNotIndexed(const Attribute& attribute) {
    if (attribute.type == KyBLOB_T) return "blobs have no index: they are longer than its keys";
    if (WhyNotOrdered(attribute.type) != nullptr)
        return "times of this type have no index: their order does not tell the parts of a second apart";
    if (IsString(attribute.type)) return attribute.count > 1 ? "arrays of strings have no index" : nullptr;
    const unsigned size = Types().DiskLenGet(attribute.type, nullptr, KyFormNative, attribute.count, KyFormMemory);
    return size > kLongestKey ? "an array of more than 253 bytes has no index" : nullptr;
}

std::optional<std::size_t> Class::Find(std::string_view attribute) const { return FindByName(attributes, attribute); }

std::optional<std::size_t> Schema::Find(std::string_view name) const { return FindByName(classes, name); }

Schema Schema::Parse(std::string_view text) {
    Words words(text);
    Schema schema;
    while (!words.AtEnd()) {
        const std::size_t position = words.Position();
        Class next = ReadClass(words);
        if (schema.Find(next.name)) throw TextError("there is a class \"" + next.name + "\" already", position);
        schema.classes.push_back(std::move(next));
    }
    if (schema.classes.empty()) words.Fail("a schema has at least one class");
    return schema;
}

std::string Schema::Text() const {
    std::ostringstream text;
    for (const Class& each : classes) {
        text << "class " << each.name << " {\n";
        for (const Attribute& attribute : each.attributes) {
            text << "  " << attribute.name << ' ' << Types().NameGet(attribute.type, nullptr);
            if (attribute.count > 1) text << '[' << attribute.count << ']';
            if (attribute.language != kDefault) text << " language " << unsigned{attribute.language};
            if (attribute.codeSet != kDefault) text << " codeset " << unsigned{attribute.codeSet};
            if (attribute.index) {
                text << " index";
                if (attribute.index->ignoreCase) text << " nocase";
                if (attribute.index->ignoreAccent) text << " noaccent";
            }
            text << '\n';
        }
        text << "}\n";
    }
    return text.str();
}

}  // namespace engine
