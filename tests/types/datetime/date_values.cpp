#include "date_values.h"

namespace {

bksClockReading next;
long long secondsBetween;

bksClockReading Replay() {
    const bksClockReading reading = next;
    next.utcSeconds += secondsBetween;
    return reading;
}

}  // namespace

ReplayedClock::ReplayedClock(long long utcSeconds, int nanoseconds, int offsetMinutes, long long step)
    : previous(bksSetClock(&Replay)) {
    next = {utcSeconds, nanoseconds, offsetMinutes};
    secondsBetween = step;
}
