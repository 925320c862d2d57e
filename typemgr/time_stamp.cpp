#include "time_stamp.h"

#include "kyodmg.h"
#include "kytypes.h"
#include "raw_bytes.h"

namespace {

d_Date DateOf(const ky::TimeStamp& stamp) {
    return {stamp.year, static_cast<unsigned short>(stamp.month), static_cast<unsigned short>(stamp.day)};
}

d_Time TimeOf(const ky::TimeStamp& stamp) {
    // KEPT: the sub-second count is added as whole seconds. Stored time stamps hold what comes out of it.
    const float seconds = static_cast<float>(stamp.subSeconds) + static_cast<float>(stamp.second);
    return {static_cast<unsigned short>(stamp.hour), static_cast<unsigned short>(stamp.minute), seconds};
}

}  // namespace

ky::TimeStampValue::TimeStampValue(char typeId, void* stamp) {
    switch (static_cast<signed char>(typeId)) {
        case KyDATE_T:
        case KyDATIME_T:
        case KyDATIME_N_T:
            value = stamp;
            return;
        case KyTIME_T:
            value = Advance(stamp, offsetof(TimeStamp, hour));
            return;
        case D_DATE_T:
            StoreAs(image, DateOf(LoadAs<TimeStamp>(stamp)));
            break;
        case D_TIME_T:
            StoreAs(image, TimeOf(LoadAs<TimeStamp>(stamp)));
            break;
        case D_TIMESTAMP_T: {
            const auto fields = LoadAs<TimeStamp>(stamp);
            StoreAs(image, d_Timestamp(DateOf(fields), TimeOf(fields)));
            break;
        }
        default:
            return;
    }
    value = image;
}
