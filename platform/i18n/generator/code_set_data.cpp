#include "code_set_data.h"

#include <algorithm>

#include "kyi18n.h"

namespace ky::tables {
namespace {

CodeSetData Latin1() {
    CodeSetData set;
    set.number = KyCodeSetLatin1;
    set.name = "ISO-8859-1";
    for (unsigned short code = 0; code < 0x100; ++code) set.toUnicode[code] = code;
    return set;
}

unsigned ParseByte(const Place& at, const std::string& text) {
    const unsigned byte = text.size() == 2 ? ParseCode(at, "00" + text) : 0;
    if (byte < 0x80) throw BadData(at, "\"" + text + "\" is not a byte from 80 to FF");
    return byte;
}

void ReadHead(CodeSetData& set, DataLine& line) {
    set.at = line.At();
    if (line.Next("\"codeset\"") != "codeset")
        throw BadData(line.At(), "a code set begins with \"codeset NUMBER NAME\"");
    set.number = static_cast<unsigned char>(ParseNumber(line.At(), line.Next("the number"), KyCodeSetFirst16Bit - 1u));
    set.name = line.Next("the name");
    line.ExpectEnd();
}

CodeSetData ReadCodeSet(const std::filesystem::path& file) {
    std::vector<DataLine> lines = ReadLines(file);
    CodeSetData set;
    ReadHead(set, lines.front());
    for (unsigned short code = 0; code < 0x80; ++code) set.toUnicode[code] = code;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        DataLine& line = lines[i];
        unsigned short& unicode = set.toUnicode[ParseByte(line.At(), line.Next("the byte"))];
        if (unicode != 0) throw BadData(line.At(), "the byte has a character already");
        const unsigned short code = ParseCode(line.At(), line.Next("the character"));
        if (set.FromUnicode(code) != 0) throw BadData(line.At(), CodeName(code) + " has a byte already");
        unicode = code;
        line.ExpectEnd();
    }
    return set;
}

}  // namespace

unsigned short CodeSetData::FromUnicode(unsigned short unicode) const {
    const auto found = std::find(toUnicode.begin() + 1, toUnicode.end(), unicode);
    return found != toUnicode.end() ? static_cast<unsigned short>(found - toUnicode.begin()) : 0;
}

std::vector<CodeSetData> ReadCodeSets(const std::filesystem::path& folder) {
    std::vector<CodeSetData> sets{Latin1()};
    for (const auto& file : DataFiles(folder)) {
        CodeSetData set = ReadCodeSet(file);
        const auto sameNumber = [&](const CodeSetData& other) { return other.number == set.number; };
        if (set.number == KyCodeSetNative || std::any_of(sets.begin(), sets.end(), sameNumber)) {
            throw BadData(set.at, "number " + std::to_string(set.number) + " is another set's");
        }
        sets.push_back(std::move(set));
    }
    std::sort(sets.begin(), sets.end(), [](const CodeSetData& a, const CodeSetData& b) { return a.number < b.number; });
    return sets;
}

}  // namespace ky::tables
