#include "kytypevl.h"

#include <cmath>
#include <limits>

#include "kybase.h"
#include "kytypes.h"
#include "raw_bytes.h"

namespace {

/// What a difference adds to a range.
double Extent(double difference) {
    if (std::isnan(difference)) return std::numeric_limits<double>::max();
    return difference > 0 ? difference : 0;
}

// Unlike std::min and std::max these are NaN when either operand is, in whatever order they stand.
double Smaller(double a, double b) {
    if (std::isunordered(a, b)) return a + b;
    return a < b ? a : b;
}

double Larger(double a, double b) {
    if (std::isunordered(a, b)) return a + b;
    return a < b ? b : a;
}

void Record(void*& limit, unsigned char& limitLength, const void* value, unsigned length) {
    void* const block = mmKymalloc(length);
    if (block == nullptr) return;
    ky::CopyBytes(block, value, length);
    limit = block;
    limitLength = static_cast<unsigned char>(length);
}

}  // namespace

double CalcRange(unsigned short op, double valueLow, double valueHigh, double lower, double upper, double unit) {
    double kept = 0;
    if ((op & KyCmpGreater) != 0) kept += Extent(upper - (lower > valueHigh ? lower - unit : valueHigh));
    if ((op & KyCmpLess) != 0) kept += Extent((valueLow > upper ? upper + unit : valueLow) - lower);
    if ((op & KyCmpEqual) != 0) kept += Extent(Smaller(upper, valueHigh) - Larger(lower, valueLow) + unit);
    return kept;
}

void SetBoundaries(KyIdxBounds* outBounds, void* value, unsigned short op, unsigned length) {
    if (outBounds == nullptr) return;
    if (outBounds->lower == nullptr && (op & KyCmpLess) == 0) {
        Record(outBounds->lower, outBounds->lowerLen, value, length);
    }
    if (outBounds->upper == nullptr && (op & KyCmpGreater) == 0) {
        Record(outBounds->upper, outBounds->upperLen, value, length);
    }
}
