// CoInitialize / CoUninitialize: per-thread counters with COM's results. Each test that needs a
// depth of 0 to start from runs on a thread of its own, so nothing another test left on the main
// thread can change its outcome.

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <thread>
#include <vector>

#include "mfc/ComShims.h"

namespace {

// Runs body on a fresh thread (which starts with no CoInitialize calls) and waits for it.
void OnFreshThread(const std::function<void()>& body) {
  std::thread worker(body);
  worker.join();
}

}  // namespace

TEST(ComShims, FreshThreadStartsAtDepthZero) {
  int depth = -1;

  OnFreshThread([&] { depth = QKComInitDepth(); });

  EXPECT_EQ(depth, 0);
}

TEST(ComShims, CoInitializeReturnsSOkFirstThenSFalseWhenNested) {
  std::vector<HRESULT> results;

  OnFreshThread([&] {
    results.push_back(CoInitialize(nullptr));
    results.push_back(CoInitialize(nullptr));
    results.push_back(CoInitialize(nullptr));
    CoUninitialize();
    CoUninitialize();
    CoUninitialize();
  });

  EXPECT_EQ(results, (std::vector<HRESULT>{S_OK, S_FALSE, S_FALSE}));
}

TEST(ComShims, QKComInitDepthCountsUnmatchedCalls) {
  std::vector<int> depths;

  OnFreshThread([&] {
    for (int i = 0; i < 3; ++i) {
      CoInitialize(nullptr);
      depths.push_back(QKComInitDepth());
    }
    for (int i = 0; i < 3; ++i) {
      CoUninitialize();
      depths.push_back(QKComInitDepth());
    }
  });

  EXPECT_EQ(depths, (std::vector<int>{1, 2, 3, 2, 1, 0}));
}

TEST(ComShims, CoInitializeAfterFullReleaseReturnsSOkAgain) {
  HRESULT again = -1;

  OnFreshThread([&] {
    CoInitialize(nullptr);
    CoInitialize(nullptr);
    CoUninitialize();
    CoUninitialize();
    again = CoInitialize(nullptr);
    CoUninitialize();
  });

  EXPECT_EQ(again, S_OK);
}

TEST(ComShims, CoUninitializeNeverGoesBelowZero) {
  int depthAfterUnmatched = -1;
  HRESULT next = -1;
  int depthAfterNext = -1;

  OnFreshThread([&] {
    CoUninitialize();  // unmatched
    CoUninitialize();
    depthAfterUnmatched = QKComInitDepth();
    // Had the depth gone negative, this would not be the first initialisation.
    next = CoInitialize(nullptr);
    depthAfterNext = QKComInitDepth();
    CoUninitialize();
  });

  EXPECT_EQ(depthAfterUnmatched, 0);
  EXPECT_EQ(next, S_OK);
  EXPECT_EQ(depthAfterNext, 1);
}

TEST(ComShims, DepthIsPerThread) {
  // The main thread initialises twice; another thread still sees 0 and counts on its own, and its
  // calls leave the main thread's depth alone.
  const int before = QKComInitDepth();
  CoInitialize(nullptr);
  CoInitialize(nullptr);
  int otherBefore = -1;
  HRESULT otherFirst = -1;
  int otherAfter = -1;

  OnFreshThread([&] {
    otherBefore = QKComInitDepth();
    otherFirst = CoInitialize(nullptr);
    otherAfter = QKComInitDepth();
    CoUninitialize();
  });
  const int mainDepth = QKComInitDepth();
  CoUninitialize();
  CoUninitialize();

  EXPECT_EQ(otherBefore, 0);
  EXPECT_EQ(otherFirst, S_OK);
  EXPECT_EQ(otherAfter, 1);
  EXPECT_EQ(mainDepth, before + 2);
  EXPECT_EQ(QKComInitDepth(), before);
}

TEST(ComShims, ThreadsCountIndependentlyAtTheSameTime) {
  // Two threads hold different depths at once; each sees only its own.
  constexpr int kThreads = 2;
  int seen[kThreads] = {-1, -1};
  std::vector<std::thread> workers;

  for (int t = 0; t < kThreads; ++t) {
    workers.emplace_back([t, &seen] {
      for (int i = 0; i <= t; ++i) CoInitialize(nullptr);
      // Give the other thread time to reach its own depth before reading ours.
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      seen[t] = QKComInitDepth();
      for (int i = 0; i <= t; ++i) CoUninitialize();
    });
  }
  for (auto& w : workers) w.join();

  EXPECT_EQ(seen[0], 1);
  EXPECT_EQ(seen[1], 2);
}
