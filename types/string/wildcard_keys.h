#ifndef WILDCARD_KEYS_H
#define WILDCARD_KEYS_H

/// Patterns of order values for the matcher: the wildcards and the escape are those of `KyString`'s settings.

#include "key_reader.h"
#include "kystring.h"
#include "wildcard_match.h"

namespace ky {

/// The orders that mean something in a pattern.
struct Wildcards {
    unsigned short asterisk = KyString::GetAsterisk();
    unsigned short question = KyString::GetQuestion();
    unsigned short escape = KyString::GetEscape();
};

/// Keys of a pattern, of which at most `limit` have to match.
class KeyPattern {
public:
    KeyPattern(KeyReader& patternReader, unsigned limit) : reader(patternReader), left(limit) {}

    Token Next(unsigned& key) {
        if (left == 0) return Token::end;
        key = reader.Next();
        const unsigned short order = reader.Order();
        if (order == 0) return Token::end;
        if (order == wildcards.asterisk) return Token::anyRun;
        --left;
        if (order == wildcards.question) return Token::anyOne;
        if (order == wildcards.escape) {
            const unsigned own = key;
            key = reader.Next();
            if (reader.Order() == 0) key = own;
        }
        return Token::literal;
    }

private:
    KeyReader& reader;
    unsigned left;
    Wildcards wildcards;
};

}  // namespace ky

#endif
