#ifndef SHARED_SLOTS_H
#define SHARED_SLOTS_H

/// Slot functions that rows of many types hold: the answers of types without a null value or without GetValue.

#include "kytypes.h"

/// Not null, whatever the value.
int NoIsNullDefined(void* value);

/// -2999, whatever is asked.
int KyGetValueFuncDummy(void* value, unsigned count, unsigned char form, unsigned char what);

// The illegal row's functions: each sets err to 0 where it has one and answers with nothing.
void* KyIllegalCreate(unsigned count);
int KyIllegalDelete(void* values, unsigned count);
unsigned KyIllegalStore(void* dst, const void* src, unsigned char flag, unsigned count);
unsigned KyIllegalNullSizeGet(unsigned count);
unsigned KyIllegalSizeGet(const void* value, unsigned char fromFlag, unsigned char toFlag, unsigned count);
unsigned KyIllegalSizeGetFromMemFile(MemFile* file, unsigned char flag, unsigned count);
int KyIllegalCompare(unsigned char flag, unsigned len1, void* a, unsigned len2, void* b, unsigned short op,
                     unsigned count, int& err);
float KyIllegalEvalAndBound(KyIdxBounds* bounds, unsigned short& op, void* value, unsigned char flag, unsigned count,
                            KyIdxBounds* out);
unsigned KyIllegalHash(unsigned char flag, unsigned len, void* data, unsigned count, int& err);
KyTypeConvertData* KyIllegalConvertToKyString(void* value, unsigned count);
void* KyIllegalConvertFromKyString(KyTypeConvertData* data, unsigned count);
void KyIllegalConstructor(void* values, unsigned count, unsigned extra);
void KyIllegalAssignment(void* dst, void* src, unsigned count, int mode);
unsigned KyIllegalTranslate(void* dst, unsigned char dstFlag, unsigned dstLen, void* src, unsigned char srcFlag,
                            unsigned srcLen, unsigned count);
KyString& KyIllegalPrintToKyString(KyString& out, void* value, const char* format, unsigned count);
void* KyIllegalScanFromKyString(void* value, KyString& text, const char* format, unsigned count);
void* KyIllegalDefaultValue(unsigned count, int which);

#endif
