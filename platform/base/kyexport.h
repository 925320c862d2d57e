#ifndef KYEXPORT_H
#define KYEXPORT_H

/// Marks what belongs to a library's interface. Everything else is built with hidden visibility.
#define KY_EXPORT __attribute__((visibility("default")))

/// Marks a member of an exported class that only the library itself calls.
#define KY_INTERNAL __attribute__((visibility("hidden")))

#endif
