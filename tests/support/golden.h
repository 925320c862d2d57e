#ifndef GOLDEN_H
#define GOLDEN_H

#include <ostream>
#include <string>
#include <vector>

#include "kytypes.h"

/// One line of a golden file: a value's text in the row's print format, its bytes in both persistent forms, its hash,
/// and, for types that have such a form, its packed bytes. A column of two hashes is that of all forms but the reversed
/// one and that of the reversed one.
struct GoldenLine {
    int number = 0;  ///< in its file, from 1
    std::string value;
    std::string form1;
    std::string form2;
    std::string hash;
    std::string reversedHash;  ///< mostly the same
    std::string packed;
};

/// The name of a type's golden file: its own in lower case.
std::string GoldenName(const KyTypeTab& row);

/// The lines of tests/golden/`name`.txt: columns parted by two blanks or more, lines that begin with "# " left out.
std::vector<GoldenLine> ReadGolden(const std::string& name);

/// Expects of each line of the type's golden file that its text scans to a value with these bytes and this hash in
/// every form, and that the bytes load back to an equal value; packed bytes are those of the forms 8, 9 and 10.
void CheckGolden(KyTypeTab& row);

#endif
