#include "platform/task.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace tabulon::platform {
namespace {

// How far the stack has grown, over all places that call `look`.
class StackDepth {
 public:
  __attribute__((noinline)) void look() {
    const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    lowest_ = std::min(lowest_, here);
    highest_ = std::max(highest_, here);
  }
  std::uintptr_t bytes() const { return highest_ - lowest_; }

 private:
  std::uintptr_t lowest_ = std::numeric_limits<std::uintptr_t>::max(), highest_ = 0;
};

constexpr int a_million = 1'000'000;

// Notes that it was destroyed.
class Witness {
 public:
  explicit Witness(int& destroyed) : destroyed_(&destroyed) {}
  Witness(const Witness&) = delete;
  ~Witness() { ++*destroyed_; }

 private:
  int* destroyed_;
};

Task<int> one(StackDepth& depth) {
  depth.look();
  co_return 1;
}

Task<int> one_more_than(int number, StackDepth& depth) {
  co_return number + co_await one(depth);
}

TEST(Task, DoesNotRunBeforeItIsStarted) {
  bool ran = false;
  const auto note = [](bool& done) -> Task<> {
    done = true;
    co_return;
  };
  Task<> task = note(ran);
  EXPECT_FALSE(ran);
  EXPECT_FALSE(task.done());
  task.start();
  EXPECT_TRUE(ran);
  EXPECT_TRUE(task.done());
}

TEST(Task, AMillionAwaitsThatDoNotWaitUseConstantStack) {
  StackDepth depth;
  const auto count = [](StackDepth& deep) -> Task<int> {
    int sum = 0;
    for (int turn = 0; turn < a_million; ++turn) sum = co_await one_more_than(sum, deep);
    co_return sum;
  };
  Task<int> task = count(depth);
  task.start();
  ASSERT_TRUE(task.done());
  EXPECT_EQ(task.result(), a_million);
  EXPECT_EQ(depth.bytes(), 0U);
}

TEST(Task, AMillionWaitsAnsweredInAdvanceUseConstantStack) {
  StackDepth depth;
  const auto count = [](StackDepth& deep) -> Task<int> {
    int sum = 0;
    for (int turn = 0; turn < a_million; ++turn) {
      Completion<int> answer;
      answer.complete(1);
      sum += co_await answer;
      deep.look();
    }
    co_return sum;
  };
  Task<int> task = count(depth);
  task.start();
  ASSERT_TRUE(task.done());
  EXPECT_EQ(task.result(), a_million);
  EXPECT_EQ(depth.bytes(), 0U);
}

TEST(Task, WaitsThatAreAnsweredOneByOneUseConstantStack) {
  StackDepth depth;
  Completion<int>* open = nullptr;
  const auto ask = [](Completion<int>*& asked) -> Task<int> {
    Completion<int> answer;
    asked = &answer;
    co_return co_await answer;
  };
  const auto loop = [&ask](Completion<int>*& asked, StackDepth& deep) -> Task<int> {
    int sum = 0;
    for (int turn = 0; turn < 100'000; ++turn) {
      sum += co_await ask(asked);
      deep.look();
    }
    co_return sum;
  };
  Task<int> task = loop(open, depth);
  task.start();
  while (!task.done()) open->complete(2);
  EXPECT_EQ(task.result(), 200'000);
  EXPECT_LT(depth.bytes(), 1024U);
}

TEST(Task, AnAnswerGoesUpThroughAllThatWait) {
  Completion<std::string> answer;
  struct Chain {
    static Task<std::string> ask(int levels, Completion<std::string>& from) {
      if (levels == 0) co_return co_await from;
      co_return co_await ask(levels - 1, from) + ".";
    }
  };
  Task<std::string> task = Chain::ask(5, answer);
  task.start();
  EXPECT_FALSE(task.done());
  answer.complete("ja");
  ASSERT_TRUE(task.done());
  EXPECT_EQ(task.result(), "ja.....");
}

TEST(Task, CarriesAValueThatCanOnlyBeMoved) {
  const auto make = []() -> Task<std::unique_ptr<int>> { co_return std::make_unique<int>(7); };
  const auto pass = [&make]() -> Task<std::unique_ptr<int>> { co_return co_await make(); };
  Task<std::unique_ptr<int>> task = pass();
  task.start();
  EXPECT_EQ(*task.result(), 7);
}

TEST(Task, AwaitingATaskThatHasEndedGivesItsValue) {
  StackDepth depth;
  Task<int> ended = one(depth);
  ended.start();
  const auto wait = [](Task<int> other) -> Task<int> { co_return co_await std::move(other); };
  Task<int> task = wait(std::move(ended));
  task.start();
  EXPECT_EQ(task.result(), 1);
}

TEST(Task, OneThatIsMadeOfNothingHasEnded) {
  const auto nothing = []() -> Task<> { return {}; };
  bool went_on = false;
  const auto wait = [&nothing](bool& on) -> Task<> {
    co_await nothing();
    on = true;
  };
  Task<> ended = nothing();
  EXPECT_TRUE(ended.done());
  ended.start();
  EXPECT_TRUE(ended.done());
  Task<> task = wait(went_on);
  task.start();
  EXPECT_TRUE(task.done());
  EXPECT_TRUE(went_on);
}

TEST(Task, DestroyingATaskThatWaitsDestroysWhatItWaitsFor) {
  int destroyed = 0;
  Completion<int> answer;
  struct Chain {
    static Task<int> inner(Completion<int>& from, int& count) {
      const Witness witness(count);
      co_return co_await from;
    }
    static Task<int> outer(Completion<int>& from, int& count) {
      const Witness witness(count);
      co_return co_await inner(from, count);
    }
  };
  {
    Task<int> task = Chain::outer(answer, destroyed);
    task.start();
    EXPECT_EQ(destroyed, 0);
  }
  EXPECT_EQ(destroyed, 2);
}

TEST(Task, AnAnswerThatComesAfterTheTaskIsGoneDoesNothing) {
  Completion<int> answer;
  bool went_on = false;
  const auto wait = [](Completion<int>& from, bool& on) -> Task<> {
    co_await from;
    on = true;
  };
  {
    Task<> task = wait(answer, went_on);
    task.start();
  }
  answer.complete(1);
  EXPECT_TRUE(answer.completed());
  EXPECT_FALSE(went_on);
}

TEST(Task, ATaskThatIsReplacedIsDestroyed) {
  int destroyed = 0;
  Completion<int> answer;
  const auto wait = [](Completion<int>& from, int& count) -> Task<> {
    const Witness witness(count);
    co_await from;
  };
  Task<> task = wait(answer, destroyed);
  task.start();
  task = Task<>();
  EXPECT_EQ(destroyed, 1);
  EXPECT_TRUE(task.done());
}

TEST(Task, ATaskThatNeverStartedLetsItsArgumentsGo) {
  const auto held = std::make_shared<int>(3);
  const auto keep = [](std::shared_ptr<int> kept) -> Task<int> { co_return *kept; };
  {
    const Task<int> task = keep(held);
    EXPECT_EQ(held.use_count(), 2);
  }
  EXPECT_EQ(held.use_count(), 1);
}

TEST(Completion, ResumesTheTaskOnce) {
  Completion<int> answer;
  std::vector<int> heard;
  const auto listen = [](Completion<int>& from, std::vector<int>& list) -> Task<> {
    list.push_back(co_await from);
  };
  Task<> task = listen(answer, heard);
  task.start();
  EXPECT_FALSE(answer.completed());
  answer.complete(4);
  answer.complete(5);
  EXPECT_EQ(heard, std::vector<int>{4});
}

}  // namespace
}  // namespace tabulon::platform
