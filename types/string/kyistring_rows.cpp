// The rows of the dictionary strings.

#include <type_traits>

#include "dictionary_slots.h"
#include "kyistring.h"
#include "kyistring_bounds.h"
#include "object_slots.h"
#include "shared_slots.h"

namespace {

template <class Self>
consteval KyTypeTab DictionaryRow(const char* typeName, const char* typeCodeName) {
    using Objects = ky::ObjectSlots<Self>;
    return {
        .typeName = typeName,
        .typeCodeName = typeCodeName,
        .Create = Objects::Create,
        .Delete = Objects::Delete,
        .Store = ky::DictionaryStoring<Self>::Store,
        .Load = ky::DictionaryStoring<Self>::Load,
        .NullSizeGet = ky::DictionaryStoring<Self>::NullSizeGet,
        .SizeGet = ky::DictionaryStoring<Self>::SizeGet,
        .SizeGetFromMemFile = ky::DictionaryStoring<Self>::SizeGetFromMemFile,
        .Compare = ky::DictionaryOrder<Self>::Compare,
        .EvalAndBound = std::is_same_v<Self, KyIString> ? KyIStringEvalAndBound : KyCaseIStringEvalAndBound,
        .Hash = ky::DictionaryOrder<Self>::Hash,
        .ConvertToKyString = ky::DictionaryValues<Self>::ConvertToKyString,
        .ConvertFromKyString = ky::DictionaryValues<Self>::ConvertFromKyString,
        .Constructor = Objects::Constructor,
        .Destructor = Objects::Destructor,
        .Assignment = Objects::Assignment,
        .Copy = Objects::Copy,
        .Translate = ky::DictionaryTranslating<Self>::Translate,
        .IsNull = NoIsNullDefined,
        .SetNull = nullptr,
        .printFormat = "%s",
        .PrintToKyString = ky::DictionaryValues<Self>::PrintToKyString,
        .ScanFromKyString = ky::DictionaryValues<Self>::ScanFromKyString,
        .sizeWord = sizeof(Self),
        .DefaultValue = Objects::DefaultValue,
        .GetValue = KyGetValueFuncDummy,
        .end = nullptr,
    };
}

}  // namespace

constinit KyTypeTab KyIStringTab = DictionaryRow<KyIString>("KyIString", "KyISTRING_T");
constinit KyTypeTab KyCaseIStringTab = DictionaryRow<KyCaseIString>("KyCaseIString", "KyCASEISTRING_T");
