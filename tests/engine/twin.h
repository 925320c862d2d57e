#ifndef TWIN_H
#define TWIN_H

/// What a store's queries have to give, from the values alone: no records, no indexes.

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "kyistring.h"
#include "pattern.h"
#include "query.h"
#include "store.h"
#include "types.h"

/// One value in the persistent form of a store.
using Stored = std::vector<unsigned char>;

inline int CompareStored(char type, unsigned char form, const Stored& a, const Stored& b, unsigned short op) {
    int err = 0;
    return engine::Types().Cmp(type, static_cast<unsigned>(a.size()), const_cast<unsigned char*>(a.data()),
                               static_cast<unsigned>(b.size()), const_cast<unsigned char*>(b.data()), op, 1, form, err);
}

/// Whether a value fulfils a comparison.
inline bool Fulfils(char type, unsigned char form, const Stored& value, const Stored& constant, unsigned short op) {
    const int order = CompareStored(type, form, value, constant, op);
    bool equal = order == 0;
    if (engine::IsPattern(type, form, constant, op)) equal = engine::MatchesPattern(type, form, value, constant, op);
    if ((op & KyCmpLess) != 0 && (op & KyCmpGreater) != 0) return !equal;
    return ((op & KyCmpEqual) != 0 && equal) || ((op & KyCmpLess) != 0 && order < 0) ||
           ((op & KyCmpGreater) != 0 && order > 0);
}

/// The objects of one class, in the order of their numbers.
class Twin {
public:
    Twin(const engine::Class& aClass, unsigned char aForm) : of(aClass), form(aForm) {}

    /// The elements of each attribute.
    void Add(std::vector<std::vector<Stored>> attributes) { objects.push_back(std::move(attributes)); }
    const Stored& Element(std::size_t object, std::size_t attribute, std::size_t element) const {
        return objects[object][attribute][element];
    }

    /// All objects that a query finds, in its order, whatever its limit.
    std::vector<engine::ObjectNumber> Find(const engine::Query& query, const std::vector<Stored>& constants) const {
        std::vector<engine::ObjectNumber> numbers;
        for (std::size_t i = 0; i < objects.size(); ++i)
            if (Holds(query.where, i, constants)) numbers.push_back(i + 1);
        std::ranges::stable_sort(numbers, [&](engine::ObjectNumber a, engine::ObjectNumber b) {
            for (const engine::SortKey& key : query.order) {
                const int order = CompareObjects(key.attribute, a - 1, b - 1);
                if (order != 0) return key.descending ? order > 0 : order < 0;
            }
            return false;
        });
        return numbers;
    }

private:
    const engine::Class& of;
    unsigned char form;
    std::vector<std::vector<std::vector<Stored>>> objects;

    bool Holds(const engine::Condition& condition, std::size_t object, const std::vector<Stored>& constants) const {
        if (condition.kind == engine::Condition::Kind::comparison) {
            const engine::Comparison& comparison = condition.comparison;
            return Fulfils(of.attributes[comparison.attribute].type, form,
                           Element(object, comparison.attribute, comparison.element), constants[comparison.constant],
                           comparison.op);
        }
        const bool isAll = condition.kind == engine::Condition::Kind::all;
        for (const engine::Condition& part : condition.parts)
            if (Holds(part, object, constants) != isAll) return !isAll;
        return isAll;
    }

    int CompareObjects(std::size_t attribute, std::size_t a, std::size_t b) const {
        const char type = of.attributes[attribute].type;
        int order = 0;
        for (std::size_t i = 0; i < objects[a][attribute].size() && order == 0; ++i)
            order = CompareExactly(type, Element(a, attribute, i), Element(b, attribute, i));
        return order;
    }

    int CompareExactly(char type, const Stored& a, const Stored& b) const {
        const bool isDictionary = type == KyISTRING_T || type == KyCASEISTRING_T;
        if (!isDictionary) return CompareStored(type, form, a, b, KyCmpExact);
        // Compare refuses long ones.
        const auto text = [](const Stored& value) { return reinterpret_cast<const char*>(value.data()) + 3; };
        constexpr unsigned char inDiskForm = 0x40;
        return (type == KyISTRING_T ? kyistrcmp : kycaseistrcmp)(text(a), text(b), 0, inDiskForm, inDiskForm);
    }
};

#endif
