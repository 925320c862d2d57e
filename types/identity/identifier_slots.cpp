#include "identifier_slots.h"

#include "identifier_arrays.h"
#include "identifier_values.h"

using ky::ClassIdFacts;
using ky::ObjIdFacts;
using ky::RefFacts;

// --- KyObjId ---

void* KyObjId::Create(unsigned count) { return ky::CountedCreate<KyObjId>(count); }

int KyObjId::Delete(void* values, unsigned count) { return ky::CountedDelete<KyObjId>(values, count); }

unsigned KyObjId::NullSizeGet(unsigned count) { return ky::StoredSize<ObjIdFacts>(count); }

unsigned KyObjId::SizeGet(const void*, unsigned char, unsigned char toFlag, unsigned count) {
    return ky::IdentifierSize<ObjIdFacts>(toFlag, count);
}

unsigned KyObjId::SizeGetFromMemFile(MemFile*, unsigned char, unsigned count) {
    return ky::StoredSize<ObjIdFacts>(count);
}

unsigned KyObjId::Store(void* dst, const void* src, unsigned char flag, unsigned count) {
    return ky::StoreIdentifiers<ObjIdFacts>(dst, src, flag, count);
}

unsigned KyObjId::Load(void* dst, const void* src, unsigned char flag, unsigned count) {
    return ky::LoadIdentifiers<ObjIdFacts>(dst, src, flag, count);
}

int KyObjId::Compare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short, unsigned count,
                     int& err) {
    return ky::CompareIdentifiers<ObjIdFacts>(flag, len1, a, len2, b, count, err);
}

float KyObjId::EvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned count,
                            KyIdxBounds* out) {
    return ky::IdentifierEvalAndBound<ObjIdFacts>(bounds, op, value, flag, count, out);
}

unsigned KyObjId::Hash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    return ky::HashIdentifiers<ObjIdFacts>(flag, len, data, count, err);
}

KyTypeConvertData* KyObjId::ConvertToKyString(void* value, unsigned count) {
    return ky::IdentifiersToTexts<ObjIdFacts>(value, count);
}

void* KyObjId::ConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    return ky::IdentifiersFromTexts<ObjIdFacts>(data, count);
}

unsigned KyObjId::Translate(void* dst, unsigned char dstFlag, unsigned dstLen, void* src, unsigned char srcFlag,
                            unsigned srcLen, unsigned count) {
    return ky::TranslateArray<ObjIdFacts>(dst, dstFlag, dstLen, src, srcFlag, srcLen, count);
}

KyString& KyObjId::PrintToString(KyString& out, void* value, const char* format, unsigned) {
    return ky::PrintIdentifier<ObjIdFacts>(out, value, format);
}

void* KyObjId::ScanFromString(void* value, KyString& text, const char* format, unsigned) {
    return ky::ScanIdentifier<ObjIdFacts>(value, text, format);
}

void KyObjIdConstructor(void* values, unsigned count, unsigned) { ky::ConstructIdentifiers<ObjIdFacts>(values, count); }

void KyObjIdDestructor(void*, unsigned, unsigned) {}

void KyObjIdAssignment(void* dst, void* src, unsigned count, int mode) {
    if (count == 0) return;
    constexpr std::size_t fieldBytes = ObjIdFacts::kStoredBytes;
    if (mode == 0) {
        ky::CopyBytes(dst, src, (count - 1) * sizeof(KyObjId) + fieldBytes);
        return;
    }
    const ky::IdentifierFields first = ObjIdFacts::Read(src);
    for (std::size_t i = 0; i < count; ++i) ObjIdFacts::Write(ky::Advance(dst, i * sizeof(KyObjId)), first);
}

int KyObjIdIsNull(void* value) { return ky::IsNullIdentifier<ObjIdFacts>(value); }

int KyObjIdSetNull(void* value) { return ky::SetNullIdentifier<ObjIdFacts>(value); }

int KyGetValueKyObjId(void* value, unsigned, unsigned char form, unsigned char what) {
    if (form != KyFormMemory || (what != KyValueStep && what != KyValueStepNext)) return KyErrNotSupported;
    KyObjId object = ObjIdFacts::Make(ObjIdFacts::Read(value));
    if (object.L == 0xFFFFFFFF && object.H == 0xFFFF) return KyErrNoSuccessor;
    ++object;
    ObjIdFacts::Write(value, {.B = object.B, .L = object.L, .H = object.H});
    return 0;
}

// --- KyClassId ---

void* KyClassId::Create(unsigned count) { return ky::CountedCreate<KyClassId>(count); }

int KyClassId::Delete(void* values, unsigned count) { return ky::CountedDelete<KyClassId>(values, count); }

unsigned KyClassId::NullSizeGet(unsigned count) { return ky::StoredSize<ClassIdFacts>(count); }

unsigned KyClassId::SizeGet(const void*, unsigned char, unsigned char toFlag, unsigned count) {
    return ky::IdentifierSize<ClassIdFacts>(toFlag, count);
}

unsigned KyClassId::SizeGetFromMemFile(MemFile*, unsigned char, unsigned count) {
    return ky::StoredSize<ClassIdFacts>(count);
}

// Both fields are 16-bit numbers, and so is all that there is in an array.
unsigned KyClassId::Store(void* dst, const void* src, unsigned char flag, unsigned count) {
    return ShortStore(dst, src, static_cast<unsigned char>(flag & KyFormMask), 2 * count);
}

unsigned KyClassId::Load(void* dst, const void* src, unsigned char flag, unsigned count) {
    return Store(dst, src, flag, count);
}

int KyClassId::Compare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short,
                       unsigned count, int& err) {
    const bool reversed = (flag & KyFormMask) == KyFormReversed;
    return ky::CompareArrays(sizeof(KyClassId), len1, a, len2, b, count, err, [reversed](const void* x, const void* y) {
        return ky::DecodeClassId(x, reversed) != ky::DecodeClassId(y, reversed);
    });
}

float KyClassId::EvalAndBound(KyIdxBounds*, unsigned short&, void*, unsigned char, unsigned, KyIdxBounds*) { return 1; }

unsigned KyClassId::Hash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    err = 0;
    if (count == 0) return 0;
    const std::size_t visited = ky::ElementsInside(len, sizeof(KyClassId), count);
    err = ky::BufferEndError(visited, visited, count);
    const std::uint64_t words = ky::XorWords(data, visited * sizeof(KyClassId));
    const std::uint64_t fields = words ^ words >> 32;
    const auto field = static_cast<std::uint16_t>(fields ^ fields >> 16);
    return ky::kHashFactor * ((flag & KyFormMask) == KyFormReversed ? ky::ByteSwap(field) : field);
}

KyTypeConvertData* KyClassId::ConvertToKyString(void* value, unsigned count) {
    return ky::IdentifiersToTexts<ClassIdFacts>(value, count);
}

void* KyClassId::ConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    return ky::IdentifiersFromTexts<ClassIdFacts>(data, count);
}

unsigned KyClassId::Translate(void* dst, unsigned char dstFlag, unsigned dstLen, void* src, unsigned char srcFlag,
                              unsigned srcLen, unsigned count) {
    return ky::TranslateArray<ClassIdFacts>(dst, dstFlag, dstLen, src, srcFlag, srcLen, count);
}

KyString& KyClassId::PrintToString(KyString& out, void* value, const char* format, unsigned) {
    return ky::PrintIdentifier<ClassIdFacts>(out, value, format);
}

void* KyClassId::ScanFromString(void* value, KyString& text, const char* format, unsigned) {
    return ky::ScanIdentifier<ClassIdFacts>(value, text, format);
}

void KyClassIdConstructor(void* values, unsigned count, unsigned) {
    ky::ConstructIdentifiers<ClassIdFacts>(values, count);
}

void KyClassIdAssignment(void* dst, void* src, unsigned count, int mode) {
    ky::AssignArray<KyClassId>(dst, src, count, mode);
}

int KyClassIdIsNull(void* value) { return ky::IsNullIdentifier<ClassIdFacts>(value); }

int KyClassIdSetNull(void* value) { return ky::SetNullIdentifier<ClassIdFacts>(value); }

void* KyClassIdDefaultValue(unsigned count, int which) {
    auto* values = static_cast<KyClassId*>(KyClassId::Create(count));
    if (values == nullptr || which == 0) return values;
    for (unsigned i = 0; i < count; ++i) values[i] = ClassIdFacts::Make(ClassIdFacts::kNull);
    return values;
}

// --- KyRef ---

void* KyRef::Create(unsigned count) { return ky::CountedCreate<KyRef>(count); }

int KyRef::Delete(void* values, unsigned count) { return ky::CountedDelete<KyRef>(values, count); }

unsigned KyRef::NullSizeGet(unsigned count) { return ky::StoredSize<RefFacts>(count); }

unsigned KyRef::SizeGet(const void*, unsigned char, unsigned char toFlag, unsigned count) {
    return ky::IdentifierSize<RefFacts>(toFlag, count);
}

unsigned KyRef::SizeGetFromMemFile(MemFile*, unsigned char, unsigned count) { return ky::StoredSize<RefFacts>(count); }

unsigned KyRef::Store(void* dst, const void* src, unsigned char flag, unsigned count) {
    return ky::StoreIdentifiers<RefFacts>(dst, src, flag, count);
}

unsigned KyRef::Load(void* dst, const void* src, unsigned char flag, unsigned count) {
    return ky::LoadIdentifiers<RefFacts>(dst, src, flag, count);
}

int KyRef::Compare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short, unsigned count,
                   int& err) {
    return ky::CompareIdentifiers<RefFacts>(flag, len1, a, len2, b, count, err);
}

float KyRef::EvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned count,
                          KyIdxBounds* out) {
    return ky::IdentifierEvalAndBound<RefFacts>(bounds, op, value, flag, count, out);
}

unsigned KyRef::Hash(unsigned char flag, unsigned len, void* data, unsigned count, int& err) {
    return ky::HashIdentifiers<RefFacts>(flag, len, data, count, err);
}

KyTypeConvertData* KyRef::ConvertToKyString(void* value, unsigned count) {
    return ky::IdentifiersToTexts<RefFacts>(value, count);
}

void* KyRef::ConvertFromKyString(KyTypeConvertData* data, unsigned count) {
    return ky::IdentifiersFromTexts<RefFacts>(data, count);
}

unsigned KyRef::Translate(void* dst, unsigned char dstFlag, unsigned dstLen, void* src, unsigned char srcFlag,
                          unsigned srcLen, unsigned count) {
    return ky::TranslateArray<RefFacts>(dst, dstFlag, dstLen, src, srcFlag, srcLen, count);
}

KyString& KyRef::PrintToString(KyString& out, void* value, const char* format, unsigned) {
    return ky::PrintIdentifier<RefFacts>(out, value, format);
}

void* KyRef::ScanFromString(void* value, KyString& text, const char* format, unsigned) {
    return ky::ScanIdentifier<RefFacts>(value, text, format);
}

void KyRefConstructor(void* values, unsigned count, unsigned) { ky::ConstructIdentifiers<RefFacts>(values, count); }

void KyRefAssignment(void* dst, void* src, unsigned count, int mode) { ky::AssignArray<KyRef>(dst, src, count, mode); }

int KyRefSetNull(void* value) { return ky::SetNullIdentifier<RefFacts>(value); }
