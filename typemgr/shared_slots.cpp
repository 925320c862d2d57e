#include "shared_slots.h"

int NoIsNullDefined(void*) { return 0; }

int KyGetValueFuncDummy(void*, unsigned, unsigned char, unsigned char) { return KyErrNotSupported; }

void* KyIllegalCreate(unsigned) { return nullptr; }

int KyIllegalDelete(void*, unsigned) { return 0; }

unsigned KyIllegalStore(void*, const void*, unsigned char, unsigned) { return 0; }

unsigned KyIllegalNullSizeGet(unsigned) { return 0; }

unsigned KyIllegalSizeGet(const void*, unsigned char, unsigned char, unsigned) { return 0; }

unsigned KyIllegalSizeGetFromMemFile(MemFile*, unsigned char, unsigned) { return 0; }

int KyIllegalCompare(unsigned char, unsigned, void*, unsigned, void*, unsigned short, unsigned, int& err) {
    err = 0;
    return 0;
}

float KyIllegalEvalAndBound(KyIdxBounds*, unsigned short&, void*, unsigned char, unsigned, KyIdxBounds*) {
    return 0.0F;
}

unsigned KyIllegalHash(unsigned char, unsigned, void*, unsigned, int& err) {
    err = 0;
    return 0;
}

KyTypeConvertData* KyIllegalConvertToKyString(void*, unsigned) { return nullptr; }

void* KyIllegalConvertFromKyString(KyTypeConvertData*, unsigned) { return nullptr; }

void KyIllegalConstructor(void*, unsigned, unsigned) {}

void KyIllegalAssignment(void*, void*, unsigned, int) {}

unsigned KyIllegalTranslate(void*, unsigned char, unsigned, void*, unsigned char, unsigned, unsigned) { return 0; }

KyString& KyIllegalPrintToKyString(KyString& out, void*, const char*, unsigned) { return out; }

void* KyIllegalScanFromKyString(void*, KyString&, const char*, unsigned) { return nullptr; }

void* KyIllegalDefaultValue(unsigned, int) { return nullptr; }
