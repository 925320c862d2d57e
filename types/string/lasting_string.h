#ifndef LASTING_STRING_H
#define LASTING_STRING_H

#include <new>

#include "kystring.h"

namespace ky {

/// An empty string that is never destroyed: as a static object it is usable for as long as any code runs.
class LastingString {
public:
    LastingString() : value(new (storage) KyString) {}
    LastingString(const LastingString&) = delete;
    LastingString& operator=(const LastingString&) = delete;

    KyString& Get() { return *value; }

private:
    alignas(KyString) unsigned char storage[sizeof(KyString)];
    KyString* value;
};

}  // namespace ky

#endif
