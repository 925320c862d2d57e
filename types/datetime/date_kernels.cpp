#include "date_kernels.h"

#include "date_first_other.h"
#include "kernel_choice.h"

namespace ky {
namespace {

/// Calls `work` with the record and the form as constants.
template <class Work>
auto WithConstants(DateRecord record, DateForm form, Work work) {
    const auto withForm = [&]<DateRecord constantRecord>() {
        switch (form) {
            case DateForm::native:
                break;
            case DateForm::reversed:
                return work.template operator()<constantRecord, DateForm::reversed>();
            case DateForm::memory:
                return work.template operator()<constantRecord, DateForm::memory>();
        }
        return work.template operator()<constantRecord, DateForm::native>();
    };
    switch (record) {
        case DateRecord::date:
            return withForm.template operator()<DateRecord::date>();
        case DateRecord::time:
            return withForm.template operator()<DateRecord::time>();
        case DateRecord::dateTime:
            return withForm.template operator()<DateRecord::dateTime>();
        case DateRecord::dateTimeN:
            break;
    }
    return withForm.template operator()<DateRecord::dateTimeN>();
}

template <DateRecord record>
void MoveElements(DateForm toForm, void* dst, DateForm fromForm, const void* src, std::size_t count) {
    const std::size_t to = DateLayout(record, toForm).size;
    const std::size_t from = DateLayout(record, fromForm).size;
    for (std::size_t i = 0; i < count; ++i) {
        WriteFields<record>(Advance(dst, i * to), ReadFields<record>(Advance(src, i * from), fromForm), toForm);
    }
}

}  // namespace

void PackDatesAny(DateRecord record, DateForm form, void* dst, const void* src, std::size_t count) {
    WithConstants(record, form, [=]<DateRecord constantRecord, DateForm constantForm>() {
        MoveElements<constantRecord>(constantForm, dst, DateForm::memory, src, count);
    });
}

void UnpackDatesAny(DateRecord record, DateForm form, void* dst, const void* src, std::size_t count) {
    WithConstants(record, form, [=]<DateRecord constantRecord, DateForm constantForm>() {
        MoveElements<constantRecord>(DateForm::memory, dst, constantForm, src, count);
    });
}

std::uint32_t HashDatesAny(DateRecord record, DateForm form, const void* data, std::size_t count) {
    return WithConstants(record, form, [=]<DateRecord constantRecord, DateForm constantForm>() {
        constexpr std::size_t size = DateLayout(constantRecord, constantForm).size;
        std::uint32_t sum = 0;
        for (std::size_t i = 0; i < count; ++i) {
            sum ^= HashWordOf<constantRecord>(ReadFields<constantRecord>(Advance(data, i * size), constantForm));
        }
        return sum;
    });
}

std::size_t FirstOtherDateAny(DateRecord record, const void* a, const void* b, std::size_t count) {
    return detail::FirstOtherDateText(record, a, b, count);
}

constinit const DateKernels kDateKernels[kDateKernelVariants] = {
    {"any", PackDatesAny, UnpackDatesAny, HashDatesAny, FirstOtherDateAny},
    {"avx2", PackDatesAvx2, UnpackDatesAvx2, HashDatesAvx2, FirstOtherDateAvx2},
    {"avx512", PackDatesAvx512, UnpackDatesAvx512, HashDatesAvx512, FirstOtherDateAvx512},
};

KY_RESOLVER int RunnableDateKernels() {
    const int runnable = RunnableVariants();
    return runnable == 3 && !__builtin_cpu_supports("avx512vbmi") ? 2 : runnable;
}

namespace {
template <class Kernel>
KY_RESOLVER inline Kernel* Choose(Kernel* any, Kernel* avx2, Kernel* avx512) {
    return WidestOf(RunnableDateKernels(), any, avx2, avx512);
}
}  // namespace

extern "C" {
KY_RESOLVER DateMoveKernel* KyResolvePackDates() { return Choose(&PackDatesAny, &PackDatesAvx2, &PackDatesAvx512); }
KY_RESOLVER DateMoveKernel* KyResolveUnpackDates() {
    return Choose(&UnpackDatesAny, &UnpackDatesAvx2, &UnpackDatesAvx512);
}
KY_RESOLVER HashDatesKernel* KyResolveHashDates() { return Choose(&HashDatesAny, &HashDatesAvx2, &HashDatesAvx512); }
KY_RESOLVER FirstOtherDateKernel* KyResolveFirstOtherDate() {
    return Choose(&FirstOtherDateAny, &FirstOtherDateAvx2, &FirstOtherDateAvx512);
}
}

__attribute__((ifunc("KyResolvePackDates"))) DateMoveKernel PackDates;
__attribute__((ifunc("KyResolveUnpackDates"))) DateMoveKernel UnpackDates;
__attribute__((ifunc("KyResolveHashDates"))) HashDatesKernel HashDates;
__attribute__((ifunc("KyResolveFirstOtherDate"))) FirstOtherDateKernel FirstOtherDate;

}  // namespace ky
