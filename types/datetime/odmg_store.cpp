// Store, and Load, of the ODMG types that are records of their own.

#include "odmg_fields.h"
#include "odmg_kernels.h"
#include "odmg_slots.h"
#include "raw_bytes.h"

unsigned d_TimeStore(void* dst, const void* src, unsigned char, unsigned count) {
    ky::CopyBytes(dst, src, ky::kOdmgTimeBytes * count);
    return static_cast<unsigned>(ky::kOdmgTimeBytes * count);
}

unsigned d_TimestampStore(void* dst, const void* src, unsigned char flag, unsigned count) {
    const std::size_t bytes = ky::kOdmgTimestampBytes * count;
    if (!ky::IsReversedForm(flag)) {
        ky::CopyBytes(dst, src, bytes);
    } else if (count == 1) {
        ky::StoreAs(dst, ky::ReadOdmgTimestamp(src, true));
    } else {
        ky::SwapYears(dst, src, count);
    }
    return static_cast<unsigned>(bytes);
}
