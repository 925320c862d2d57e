#include "kyobjid.h"

#include "identifier_values.h"
#include "kytypfmt.h"

using ky::ClassIdFacts;
using ky::ObjIdFacts;
using ky::RefFacts;

KyString& KyObjId::PrintToKyString(KyString& out, const char* format) const {
    return ky::PrintIdentifier<ObjIdFacts>(out, this, format);
}

void KyObjId::ScanFromKyString(const KyString& text, const char* format) {
    ky::ScanIdentifier<ObjIdFacts>(this, text, format);
}

KyString& KyClassId::PrintToKyString(KyString& out, const char* format) const {
    return ky::PrintIdentifier<ClassIdFacts>(out, this, format);
}

void KyClassId::ScanFromKyString(const KyString& text, const char* format) {
    ky::ScanIdentifier<ClassIdFacts>(this, text, format);
}

KyString& KyRef::PrintToKyString(KyString& out, const char* format) const {
    return ky::PrintIdentifier<RefFacts>(out, this, format);
}

void KyRef::ScanFromKyString(const KyString& text, const char* format) {
    ky::ScanIdentifier<RefFacts>(this, text, format);
}

KyString& KyLocalRef::PrintToKyString(KyString& out) const {
    KyRef reference;
    reference = *this;
    return reference.PrintToKyString(out, KyLocalRefFmt);
}

void KyLocalRef::ScanFromKyString(const KyString& text) {
    KyRef reference;
    reference.ScanFromKyString(text, KyLocalRefFmt);
    *this = reference;
}
