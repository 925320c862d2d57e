#ifndef FEWER_CASES_H
#define FEWER_CASES_H

/// Instrumented tests run a smaller part of the same cases.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(__OPTIMIZE__)
inline constexpr int kFewerCases = 20;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
inline constexpr int kFewerCases = 20;
#else
inline constexpr int kFewerCases = 1;
#endif
#else
inline constexpr int kFewerCases = 1;
#endif

#endif
