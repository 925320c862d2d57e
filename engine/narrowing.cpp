#include "narrowing.h"

#include <algorithm>

#include "first_orders.h"
#include "index_order.h"
#include "pattern.h"
#include "types.h"
#include "value.h"

namespace engine {

namespace {

constexpr unsigned short kRelationBits = KyCmpEqual | KyCmpLess | KyCmpGreater;
constexpr unsigned short kNotEqual = KyCmpLess | KyCmpGreater;

/// So many characters of a dictionary string with wildcards bound a scan from below.
constexpr unsigned short kCharactersOfBound = 60;
static_assert(2 * kCharactersOfBound < kOrdersOfDictionaryKey, "a character may count as two");

/// So many orders of another that has wildcards or is longer than a limit, which fit into one.
constexpr unsigned short kOrdersOfBound = 40;
static_assert(2 * 3 * kOrdersOfBound + 6 <= kLongestKey, "a character may have two bytes, an order three characters");

Folding FoldingOf(unsigned short op) {
    return {.ignoreCase = (op & KyCmpIgnoreCase) != 0, .ignoreAccent = (op & KyCmpIgnoreAccent) != 0};
}

}  // namespace

bool Serves(const Attribute& attribute, const Comparison& comparison) {
    if (!attribute.index || attribute.count > 1 || (comparison.op & kRelationBits) == kNotEqual) return false;
    return attribute.type != KySTRING_T || *attribute.index == FoldingOf(comparison.op);
}

Narrowing::Narrowing(const Snapshot& snapshot, const RecordLayout& aLayout, std::size_t classAt,
                     std::size_t anAttribute)
    : layout(aLayout),
      attribute(aLayout.Of().attributes[anAttribute]),
      limits(snapshot.Limits(classAt, anAttribute)),
      keepsApart(limits ? limits->apart.size() : 0, true) {
    scan.attribute = anAttribute;
}

void Narrowing::Add(const Comparison& comparison, const StoredConstant& constant) {
    if (limits && limits->EntriesApart() != 0) {
        const ComparisonTest test(layout, comparison, constant);
        for (std::size_t i = 0; i < keepsApart.size(); ++i)
            keepsApart[i] = keepsApart[i] && test.HoldsFor(limits->apart[i].key);
    }

    KeyRange range;
    if (IsPattern(attribute.type, Form(), constant, comparison.op)) {
        AddPattern(comparison, constant, range);
    } else if ((comparison.op & KyCmpExact) == 0 && IsAbsent(constant)) {
        AddAbsent(comparison.op, range);
    } else if (IsString(attribute.type) && MayBeLonger(constant)) {
        AddLong(comparison, constant, range);
    } else {
        AddLimits(comparison, constant, range);
    }
    scan.range.Intersect(std::move(range), [this](Bytes a, Bytes b) { return Order(a, b); });
}

int Narrowing::Order(Bytes a, Bytes b) const { return CompareAsIndexed(attribute, Form(), a, b); }

/// A constant that is a key, or has escapes.
void Narrowing::AddLimits(const Comparison& comparison, const StoredConstant& constant, KeyRange& range) {
    Estimate(comparison.op, constant, &range.Bounds());
    // Of dictionary strings that begin with a wildcard EvalAndBound records nothing, be they exact or not.
    const bool isDictionary = IsString(attribute.type) && attribute.type != KySTRING_T;
    if (isDictionary && (comparison.op & KyCmpLess) == 0) range.AddLower(constant);
    if (isDictionary && (comparison.op & KyCmpGreater) == 0) range.AddUpper(constant);
    // Of strings with escapes only their beginning, as of patterns.
    if (IsString(attribute.type) && (comparison.op & KyCmpGreater) == 0 && !range.HasUpper()) scan.last = &comparison;
}

/// Compare looks at the keys as far as the text before the first wildcard goes, so that what begins like it is one run
/// of keys, of every type and folding.
void Narrowing::AddPattern(const Comparison& comparison, const StoredConstant& constant, KeyRange& range) {
    const bool bounds = (comparison.op & KyCmpLess) == 0;
    const std::vector<unsigned char> begin = BeginningOfBound(constant);
    if (attribute.type != KySTRING_T) {
        // The limit that is recorded of them would be the pattern as it stands.
        Estimate(comparison.op, constant, nullptr);
        if (bounds) range.AddLower(DictionaryPrefix(attribute.type, Form(), begin));
    } else if (IsPattern(attribute.type, Form(), begin, comparison.op)) {
        Estimate(comparison.op, begin, &range.Bounds());
    } else {
        Estimate(comparison.op, begin, nullptr);
        if (bounds) AddLowerUpToEscape(comparison.op, begin, range);
    }
    if ((comparison.op & KyCmpGreater) == 0) scan.last = &comparison;
}

std::vector<unsigned char> Narrowing::BeginningOfBound(const StoredConstant& constant) const {
    if (attribute.type == KySTRING_T) return FirstOrders(Form(), constant, kOrdersOfBound);
    return FirstCharacters(attribute.type, Form(), constant, kCharactersOfBound);
}

/// EvalAndBound records a text as far as it means itself under the operator.
void Narrowing::AddLowerUpToEscape(unsigned short op, Bytes begin, KeyRange& range) const {
    auto fromThere = static_cast<unsigned short>((op & ~kRelationBits) | KyCmpGreater | KyCmpEqual);
    Types().EvalAndBound(attribute.type, nullptr, fromThere, const_cast<unsigned char*>(begin.data()), Form(), 1,
                         &range.Bounds(), nullptr);
}

/// Whether a string may be that keys are cut before it ends.
bool Narrowing::MayBeLonger(const StoredConstant& constant) const {
    return constant.size() > kLongestKey ||
           BeginningOf(attribute.type, Form(), constant, OrdersOfKey(attribute.type)).isReached;
}

/// A constant that may be longer than keys: its own key is its limit, if it is one of strings that can be. Else its
/// beginning bounds it from below, and from above it is compared itself.
void Narrowing::AddLong(const Comparison& comparison, const StoredConstant& constant, KeyRange& range) {
    const bool fromThere = (comparison.op & KyCmpLess) == 0;
    const bool upToThere = (comparison.op & KyCmpGreater) == 0;
    const std::vector<unsigned char> begin = BeginningOfBound(constant);
    Estimate(static_cast<unsigned short>(comparison.op | KyCmpExact), begin, nullptr);
    std::vector<unsigned char> scratch;
    const Bytes key = IndexKey(attribute, Form(), constant, scratch);
    if (key.size() <= kLongestKey && MeansItself(comparison.op, constant)) {
        if (fromThere) range.AddLower(key);
        if (upToThere) range.AddUpper(key);
        return;
    }
    if (fromThere) AddLowerUpToEscape(comparison.op, begin, range);
    if (upToThere) scan.last = &comparison;
}

/// Whether a constant that is no pattern has no escapes either, which would make another text of it.
bool Narrowing::MeansItself(unsigned short op, const StoredConstant& constant) const {
    auto* const bytes = const_cast<unsigned char*>(constant.data());
    const auto size = static_cast<unsigned>(constant.size());
    int err = 0;
    return Types().Cmp(attribute.type, size, bytes, size, bytes, op, 1, Form(), err) == 0;
}

/// Null and the text without characters are the same unless texts are compared exactly, as the index does: such a
/// constant is both.
void Narrowing::AddAbsent(unsigned short op, KeyRange& range) {
    const Value value(KySTRING_T);
    const std::vector<unsigned char> empty = value.Store(Form());
    Estimate(op, empty, nullptr);
    Types().SetNullPtrGet(KySTRING_T)(value.Get());
    if ((op & KyCmpLess) == 0) range.AddLower(value.Store(Form()));
    if ((op & KyCmpGreater) == 0) range.AddUpper(empty);
}

/// Whether a constant of type 11 has no characters; its record may be long nevertheless.
bool Narrowing::IsAbsent(const StoredConstant& constant) const {
    if (attribute.type != KySTRING_T) return false;
    std::vector<unsigned char> empty = Value(KySTRING_T).Store(Form());
    int err = 0;
    return Types().Cmp(KySTRING_T, 0, const_cast<unsigned char*>(constant.data()), 0, empty.data(), KyCmpEqual, 1,
                       Form(), err) == 0;
}

double Narrowing::Share() const {
    if (!limits || limits->entries == 0) return share;
    double kept = share * static_cast<double>(limits->entries - limits->EntriesApart());
    for (std::size_t i = 0; i < keepsApart.size(); ++i)
        if (keepsApart[i]) kept += static_cast<double>(limits->apart[i].entries);
    return kept / static_cast<double>(limits->entries);
}

/// The share of the scan so far that a comparison keeps; `narrowed`, when it is not null, gets its limits.
void Narrowing::Estimate(unsigned short op, Bytes key, KyIdxBounds* narrowed) {
    KyIdxBounds known = KnownBounds();
    const unsigned short relation = op;
    const float kept = Types().EvalAndBound(attribute.type, known.lower == nullptr ? nullptr : &known, op,
                                            const_cast<unsigned char*>(key.data()), Form(), 1, narrowed, nullptr);
    if (const ApartKey* const apart = FindApart(key)) {
        // All others are on one side of it; to the formulas it is at no distance.
        share *= (relation & (apart->isBehind ? KyCmpLess : KyCmpGreater)) != 0 ? 1 : 0;
    } else {
        share *= std::clamp(static_cast<double>(kept), 0.0, 1.0);
    }
}

/// Null when the key is among the others.
const ApartKey* Narrowing::FindApart(Bytes key) const {
    if (!limits) return nullptr;
    const auto found =
        std::ranges::find_if(limits->apart, [&](const ApartKey& apart) { return Order(apart.key, key) == 0; });
    return found != limits->apart.end() ? &*found : nullptr;
}

/// The range so far, as far as there are keys in it.
KyIdxBounds Narrowing::KnownBounds() const {
    KyIdxBounds known;
    if (!limits || limits->first.empty()) return known;
    const auto set = [](void*& limit, unsigned char& length, Bytes key) {
        limit = const_cast<unsigned char*>(key.data());
        length = static_cast<unsigned char>(std::min<std::size_t>(key.size(), kLongestKey));
    };
    const KeyRange& range = scan.range;
    const bool fromLower = range.HasLower() && Order(range.Lower(), limits->first) > 0;
    const bool toUpper = range.HasUpper() && Order(range.Upper(), limits->last) < 0;
    set(known.lower, known.lowerLen, fromLower ? range.Lower() : limits->first);
    set(known.upper, known.upperLen, toUpper ? range.Upper() : limits->last);
    return known;
}

}  // namespace engine
