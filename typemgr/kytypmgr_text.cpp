/// Values as text: conversion records, printing and scanning, the null print string.

#include "kystring.h"
#include "kytypmgr.h"
#include "number_text.h"
#include "row_lookup.h"
#include "text_constants.h"
#include "text_join.h"

KyTypeConvertData* KyTypeMgr::ConvertTo(char id, void* value, unsigned count) {
    const KyTypeTab& row = Row(id);
    if (row.ConvertToKyString == nullptr) return nullptr;
    KyTypeConvertData* const record = row.ConvertToKyString(value, count);
    if (record != nullptr) record->manager = this;
    return record;
}

void* KyTypeMgr::ConvertFrom(char id, KyTypeConvertData* data, unsigned count) {
    if (data != nullptr) data->manager = this;
    const KyTypeTab& row = Row(id);
    return row.ConvertFromKyString == nullptr ? nullptr : row.ConvertFromKyString(data, count);
}

KyString& KyTypeMgr::PrintToKyString(char id, KyString& out, void* value, const char* format, unsigned count) {
    const KyTypeTab& row = Row(id);
    if (row.PrintToKyString == nullptr) return out;
    if (format == nullptr) format = row.printFormat;
    // The print function of characters renders a whole array as one text.
    if (count < 2 || row.PrintToKyString == CharPrintToKyString) return row.PrintToKyString(out, value, format, count);

    const KyString comma(",");
    ky::TextJoin join(out);
    for (unsigned index = 0; index < count; ++index) {
        if (index != 0) join.Append(comma);
        KyString piece;
        row.PrintToKyString(piece, GetArrayElement(id, value, index, count), format, 1);
        join.Append(piece);
    }
    join.Finish();
    return out;
}

void* KyTypeMgr::ScanFromKyString(char id, void* value, KyString& text, const char* format, unsigned count) {
    const KyTypeTab& row = Row(id);
    if (row.ScanFromKyString == nullptr) return value;
    return row.ScanFromKyString(value, text, format == nullptr ? row.printFormat : format, count);
}

const KyString& KyTypeMgr::GetNullPrintString() { return ky::NullPrintString(); }

void KyTypeMgr::SetNullPrintString(const KyString& text) { ky::NullPrintString() = text; }
