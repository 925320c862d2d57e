/// Slots that work on memory-form values alone.

#include "kyblob_slots.h"

#include <new>

#include "counted_array.h"
#include "kyblob.h"

void* BlobCreate(unsigned count) {
    try {
        return ky::CountedCreate<KyBlob>(count);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

int BlobDelete(void* values, unsigned count) { return ky::CountedDelete<KyBlob>(values, count); }

void* BlobDefaultValue(unsigned count, int which) {
    auto* blobs = static_cast<KyBlob*>(BlobCreate(count));
    if (which == 0 || blobs == nullptr) return blobs;
    for (unsigned i = 0; i < count; ++i) blobs[i].SetNullValue();
    return blobs;
}

int BlobIsNull(void* value) { return static_cast<KyBlob*>(value)->IsNullValue(); }

int BlobSetNull(void* value) { return static_cast<KyBlob*>(value)->SetNullValue(); }

float BlobEvalAndBound(KyIdxBounds*, unsigned short&, void*, unsigned char, unsigned, KyIdxBounds*) { return 1; }
