#ifndef PEER_WORD_LISTS_H
#define PEER_WORD_LISTS_H

/// Word lists of Debian's dictionary packages.

#include <ostream>
#include <string>
#include <vector>

namespace peer {

/// Where the words of a language are.
struct WordList {
    const char* tag;       ///< of the language
    const char* path;      ///< a word a line, or a spelling dictionary (.dic): a number, then `word/flags`
    const char* encoding;  ///< of the file
};

inline void PrintTo(const WordList& list, std::ostream* out) { *out << list.tag; }

extern const std::vector<WordList> kWordLists;

/// The different words of a list in UTF-16, in the order of their codes. Throws std::runtime_error when the file is
/// missing or holds what is no text in its encoding.
std::vector<std::u16string> ReadWords(const WordList& list);

}  // namespace peer

#endif
