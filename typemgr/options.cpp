#include "options.h"

#include "kytypinf.h"

namespace {

alignas(16) constinit unsigned char optionsBlock[16] = {};

}  // namespace

void* ___KyTypeMgrOptions() { return optionsBlock; }

bool ky::NumbersAreBase10() { return (optionsBlock[0] & 1) != 0; }
