#include "time_stamp.h"

#include <cstring>

#include "kytypes.h"

namespace {

/// Hours that a time of the ODMG classes is given when no zone is named.
constexpr int defaultZoneHours = 0;

/// year (2 bytes), month, day.
constexpr std::size_t odmgDateBytes = 4;

void BuildOdmgDate(unsigned char* image, const ky::TimeStamp& stamp) {
    std::memcpy(image, &stamp.year, sizeof stamp.year);
    image[2] = static_cast<unsigned char>(stamp.month);
    image[3] = static_cast<unsigned char>(stamp.day);
}

/// Zone hours, zone minutes, hour, minute, second, hundredths.
void BuildOdmgTime(unsigned char* image, const ky::TimeStamp& stamp) {
    // KEPT: the sub-second count is added as whole seconds. Stored time stamps hold what comes out of it.
    const float seconds = static_cast<float>(stamp.subSeconds) + static_cast<float>(stamp.second);
    const auto whole = static_cast<long long>(seconds);
    const auto hundredths = static_cast<long long>((seconds - static_cast<float>(whole)) * 100.0F);
    image[0] = static_cast<unsigned char>(defaultZoneHours);
    image[1] = 0;
    image[2] = static_cast<unsigned char>(defaultZoneHours + stamp.hour);
    image[3] = static_cast<unsigned char>(stamp.minute);
    image[4] = static_cast<unsigned char>(whole);
    image[5] = static_cast<unsigned char>(hundredths);
}

}  // namespace

ky::TimeStampValue::TimeStampValue(char typeId, void* stamp) {
    TimeStamp fields;
    switch (static_cast<signed char>(typeId)) {
        case KyDATE_T:
        case KyDATIME_T:
        case KyDATIME_N_T:
            value = stamp;
            return;
        case KyTIME_T:
            value = static_cast<unsigned char*>(stamp) + offsetof(TimeStamp, hour);
            return;
        case D_DATE_T:
        case D_TIME_T:
        case D_TIMESTAMP_T:
            std::memcpy(&fields, stamp, sizeof fields);
            break;
        default:
            return;
    }
    unsigned char* at = image;
    if (typeId != D_TIME_T) {
        BuildOdmgDate(at, fields);
        at += odmgDateBytes;
    }
    if (typeId != D_DATE_T) BuildOdmgTime(at, fields);
    value = image;
}
