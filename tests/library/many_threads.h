#ifndef MANY_THREADS_H
#define MANY_THREADS_H

#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <string>
#include <thread>
#include <vector>

inline constexpr unsigned kThreads = 8;

/// Runs `act(number)` in as many threads, which begin at the same time; returns when all have ended.
inline void AtTheSameTime(const std::function<void(unsigned)>& act) {
    std::latch start(kThreads);
    std::vector<std::thread> threads;
    for (unsigned number = 0; number < kThreads; ++number) {
        threads.emplace_back([&start, &act, number] {
            start.arrive_and_wait();
            act(number);
        });
    }
    for (std::thread& thread : threads) thread.join();
}

using Answers = std::vector<std::string>;

/// Runs `ask` in all threads at the same time, then once more by itself, and compares what they saw.
inline void ExpectTheSame(const std::function<Answers()>& ask) {
    std::vector<Answers> seen(kThreads);
    AtTheSameTime([&](unsigned number) { seen[number] = ask(); });
    const Answers alone = ask();
    ASSERT_FALSE(alone.empty());
    for (unsigned i = 0; i < kThreads; ++i) EXPECT_EQ(seen[i], alone) << "thread " << i;
}

#endif
