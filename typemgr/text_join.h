#ifndef TEXT_JOIN_H
#define TEXT_JOIN_H

#include <cstddef>
#include <vector>

class KyString;

namespace ky {

/// Appends many texts to one string in linear time: the pieces are gathered in the string's own code set and
/// appended at once. What a string cannot hold is cut, as by appending one by one; when the configuration asks for
/// the overflow assertion, it is raised once.
class TextJoin {
public:
    /// For appending to `out`, whose code set has to stay as it is until `Finish`.
    explicit TextJoin(KyString& out);

    void Append(const KyString& piece);
    /// One character by its code in the string's code set.
    void AppendCode(unsigned short code);
    /// Appends all that was gathered. To be called once, at the end.
    void Finish();

private:
    void AppendBytes(const char* bytes, std::size_t size);

    KyString& out;
    std::size_t width;
    std::vector<char> gathered;
};

}  // namespace ky

#endif
