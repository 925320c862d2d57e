/// The operations that are a row's slot and nothing more: selection, forwarding, slot getters, exchange.

#include "kytypmgr.h"
#include "row_lookup.h"

namespace {

/// Puts `replacement` into a slot unless it is null; returns what stood there.
template <class Slot>
Slot* Exchange(Slot*& slot, Slot* replacement) {
    Slot* const previous = slot;
    if (replacement != nullptr) slot = replacement;
    return previous;
}

}  // namespace

KyTypeMgr::KyTypeMgr(unsigned factoryNumber) { SetFactory(factoryNumber); }

unsigned KyTypeMgr::SetFactory(unsigned factoryNumber) {
    constexpr unsigned lastKept = 10;
    constexpr unsigned oldAlias = 11;
    if (factoryNumber <= lastKept) {
        factory = factoryNumber;
    } else {
        factory = factoryNumber == oldAlias ? ky::kFirstNewFactory - 1 : ky::kFirstNewFactory;
    }
    rows = factory < ky::kFirstNewFactory ? KyOldtypetab : KyNewtypetab;
    return factory;
}

int KyTypeMgr::IsValidType(char id) {
    const auto number = static_cast<signed char>(id);
    return number > KyLastUnreservedTypeId || number < KyTypeIdLimit ? 1 : 0;
}

void* KyTypeMgr::Create(char id, unsigned count) { return Row(id).Create(count); }

void KyTypeMgr::Delete(char id, void* values, unsigned count) { Row(id).Delete(values, count); }

void* KyTypeMgr::DefaultValue(char id, unsigned count, int which) { return Row(id).DefaultValue(count, which); }

unsigned KyTypeMgr::Store(char id, void* dst, void* src, unsigned char flag, unsigned count) {
    return Row(id).Store(dst, src, flag, count);
}

unsigned KyTypeMgr::Load(char id, void* dst, void* src, unsigned char flag, unsigned count) {
    return Row(id).Load(dst, src, flag, count);
}

unsigned KyTypeMgr::DiskLenGet(char id, void* value, unsigned char diskFlag, unsigned count, unsigned char valueForm) {
    return Row(id).SizeGet(value, valueForm, diskFlag, count);
}

unsigned KyTypeMgr::DiskLenGetFromMemFile(char id, MemFile* file, unsigned char flag, unsigned count) {
    return Row(id).SizeGetFromMemFile(file, flag, count);
}

int KyTypeMgr::Cmp(char id, unsigned len1, void* a, unsigned len2, void* b, unsigned short op, unsigned count,
                   unsigned char flag, int& err) {
    return Row(id).Compare(flag, len1, a, len2, b, op, count, err);
}

int KyTypeMgr::Cmp(char id, void* a, void* b, unsigned short op, unsigned count, unsigned char flag) {
    int dropped = 0;
    return Row(id).Compare(flag, 0, a, 0, b, op, count, dropped);
}

float KyTypeMgr::EvalAndBound(char id, KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag,
                              unsigned count, KyIdxBounds* out, KyEvalData*) {
    return Row(id).EvalAndBound(bounds, op, value, flag, count, out);
}

unsigned KyTypeMgr::Hash(char id, unsigned len, void* data, unsigned count, unsigned char flag, int& err) {
    return Row(id).Hash(flag, len, data, count, err);
}

unsigned KyTypeMgr::Translate(char id, void* dst, unsigned char dstFlag, unsigned dstLen, void* src,
                              unsigned char srcFlag, unsigned srcLen, unsigned count) {
    return Row(id).Translate(dst, dstFlag, dstLen, src, srcFlag, srcLen, count);
}

int KyTypeMgr::IsNullValue(char id, void* value) { return Row(id).IsNull(value); }

KyConstructorFunc* KyTypeMgr::ConstructorPtrGet(char id) { return Row(id).Constructor; }
KyDestructorFunc* KyTypeMgr::DestructorPtrGet(char id) { return Row(id).Destructor; }
KyAssignmentFunc* KyTypeMgr::AssignmentPtrGet(char id) { return Row(id).Assignment; }
KyCopyFunc* KyTypeMgr::CopyPtrGet(char id) { return Row(id).Copy; }
KyCompareFunc* KyTypeMgr::CmpFuncPtrGet(char id) { return Row(id).Compare; }
KyLoadFunc* KyTypeMgr::LoadPtrGet(char id) { return Row(id).Load; }
KyStoreFunc* KyTypeMgr::StorePtrGet(char id) { return Row(id).Store; }
KyIsNullFunc* KyTypeMgr::IsNullPtrGet(char id) { return Row(id).IsNull; }
KySetNullFunc* KyTypeMgr::SetNullPtrGet(char id) { return Row(id).SetNull; }

void* KyTypeMgr::ComparePtrGet(char) { return nullptr; }

int KyTypeMgr::DiskIsNullValue(char, void*) { return KyErrNotSupported; }

KyCompareFunc* KyTypeMgr::ExchangeKyTypeCmpFunc(char id, KyCompareFunc* compare) {
    return Exchange(Row(id).Compare, compare);
}

KyPrintFunc* KyTypeMgr::ExchangePrintToKyStringFunc(char id, KyPrintFunc* print) {
    return Exchange(Row(id).PrintToKyString, print);
}

KyScanFunc* KyTypeMgr::ExchangeScanFromKyStringFunc(char id, KyScanFunc* scan) {
    return Exchange(Row(id).ScanFromKyString, scan);
}

const char* KyTypeMgr::ExchangeFormat(char id, const char* format) { return Exchange(Row(id).printFormat, format); }
