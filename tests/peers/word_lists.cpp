#include "peers/word_lists.h"

#include <iconv.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace peer {

const std::vector<WordList> kWordLists = {
    {"en", "/usr/share/dict/american-english-huge", "UTF-8"},
    {"de", "/usr/share/dict/ngerman", "UTF-8"},
    {"de-phonebook", "/usr/share/dict/ngerman", "UTF-8"},
    {"fr", "/usr/share/dict/french", "UTF-8"},
    {"es", "/usr/share/dict/spanish", "UTF-8"},
    {"es-modern", "/usr/share/dict/spanish", "UTF-8"},
    {"da", "/usr/share/dict/danish", "UTF-8"},
    {"no", "/usr/share/hunspell/nb_NO.dic", "ISO-8859-1"},
    {"sv", "/usr/share/dict/swedish", "ISO-8859-1"},
    {"fi", "/usr/share/dict/swedish", "ISO-8859-1"},
    {"cs", "/usr/share/hunspell/cs_CZ.dic", "UTF-8"},
    {"pl", "/usr/share/hunspell/pl_PL.dic", "ISO-8859-2"},
    {"hu", "/usr/share/hunspell/hu_HU.dic", "UTF-8"},
    {"tr", "/usr/share/hunspell/tr_TR.dic", "UTF-8"},
    {"it", "/usr/share/dict/italian", "UTF-8"},
    {"pt", "/usr/share/dict/portuguese", "UTF-8"},
    {"nl", "/usr/share/dict/dutch", "UTF-8"},
    {"sk", "/usr/share/hunspell/sk_SK.dic", "UTF-8"},
    {"sl", "/usr/share/hunspell/sl_SI.dic", "ISO-8859-2"},
    {"hr", "/usr/share/hunspell/hr_HR.dic", "UTF-8"},
    {"ro", "/usr/share/hunspell/ro_RO.dic", "UTF-8"},
    {"is", "/usr/share/hunspell/is_IS.dic", "UTF-8"},
    {"et", "/usr/share/hunspell/et_EE.dic", "ISO-8859-15"},
    {"lv", "/usr/share/hunspell/lv_LV.dic", "UTF-8"},
    {"lt", "/usr/share/hunspell/lt_LT.dic", "ISO-8859-13"},
    {"ca", "/usr/share/dict/catalan", "UTF-8"},
    {"vi", "/usr/share/hunspell/vi_VN.dic", "UTF-8"},
    {"el", "/usr/share/hunspell/el_GR.dic", "ISO-8859-7"},
    {"ru", "/usr/share/hunspell/ru_RU.dic", "UTF-8"},
    {"uk", "/usr/share/hunspell/uk_UA.dic", "UTF-8"},
};

namespace {

std::string ReadFile(const char* path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error(std::string("missing word list: ") + path);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::u16string ToUtf16(std::string text, const char* encoding) {
    const iconv_t converter = iconv_open("UTF-16LE", encoding);
    if (converter == reinterpret_cast<iconv_t>(-1)) throw std::runtime_error(std::string("encoding: ") + encoding);
    std::u16string result(text.size(), u'\0');
    char* from = text.data();
    std::size_t fromLeft = text.size();
    char* to = reinterpret_cast<char*>(result.data());
    std::size_t toLeft = 2 * result.size();
    const std::size_t status = iconv(converter, &from, &fromLeft, &to, &toLeft);
    iconv_close(converter);
    if (status == static_cast<std::size_t>(-1)) throw std::runtime_error(std::string("not ") + encoding);
    result.resize(result.size() - toLeft / 2);
    return result;
}

bool IsSpellingDictionary(const std::string& path) { return path.ends_with(".dic"); }

}  // namespace

std::vector<std::u16string> ReadWords(const WordList& list) {
    const std::u16string text = ToUtf16(ReadFile(list.path), list.encoding);
    const bool dictionary = IsSpellingDictionary(list.path);
    std::vector<std::u16string> words;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t limit = std::min(text.find(u'\n', start), text.size());
        std::u16string_view line(text.data() + start, limit - start);
        start = limit + 1;
        if (dictionary) line = line.substr(0, line.find_first_of(u"/\t"));
        while (!line.empty() && (line.back() == u'\r' || line.back() == u' ')) line.remove_suffix(1);
        const bool isCount = dictionary && line.find_first_not_of(u"0123456789") == line.npos;
        if (!line.empty() && !isCount) words.emplace_back(line);
    }
    std::sort(words.begin(), words.end());
    words.erase(std::unique(words.begin(), words.end()), words.end());
    return words;
}

}  // namespace peer
