#include <barrier>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "tests/published/HostTest.h"

namespace quorvel::test {
namespace {

using Threads = HostTest;

TEST_F(Threads, WorkAtTheSameTimeEachWithItsOwnContext) {
  constexpr int kThreads = 4;
  constexpr int kRounds = 5;
  std::barrier together(kThreads);
  const auto host = [&](int number) {
    const std::string name = "thread " + std::to_string(number);
    const WideText mine(name.begin(), name.end());
    for (int round = 0; round < kRounds; ++round) {
      together.arrive_and_wait();
      const LoadedContext context(u"OrderEntry", u"SO20001", u"admin");
      EXPECT_EQ(AddTo(context.Get(), u"Ord.Note", mine, mine), S_OK);
      EXPECT_EQ(context->Save(VARIANT_TRUE), S_OK) << testing::PrintToString(TakeError().description);
      EXPECT_EQ(Load(context.Get(), mine), -1);
      EXPECT_EQ(TakeError().description, u"ContextID [" + mine + u"] not found");
    }
  };
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int number = 0; number < kThreads; ++number) threads.emplace_back(host, number);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText LIKE 'thread %' AND MemoText = UserID"),
            std::to_string(kThreads * kRounds));
}

// A host that ends its threads in any order may release objects on another thread.
TEST_F(Threads, ObjectsMayBeReleasedOnAnotherThreadAfterTheirOwnHasEnded) {
  Pointer<_RemarkContext> context;
  Pointer<_RemarkList> list;
  Pointer<_Remark> remark;
  Pointer<IUnknown> remarks;
  std::thread([&] {
    context = NewContext();
    ASSERT_EQ(Load(context.Get(), u"CustMaint", u"C1044", u"admin"), S_OK);
    list = Read(context.Get(), &_RemarkContext::get_RemarkList);
    remarks = Read(list.Get(), &_RemarkList::get_NewEnum);
    remark = RemarkAt(list.Get(), 1);
    EXPECT_EQ(Load(NewContext().Get(), u"None"), -1) << "this error object ends with its thread";
  }).join();
  EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
  EXPECT_EQ(Read(remark.Get(), &_Remark::get_UserID), u"jsmith");
  EXPECT_EQ(context->Dispose(), S_OK);
}

/// A thread-local object that is made before the component's is destroyed after it.
struct SavesAtThreadEnd {
  Pointer<_RemarkContext> context;
  std::shared_ptr<std::pair<HRESULT, WideText>> outcome;
  ~SavesAtThreadEnd() {
    if (outcome == nullptr) return;
    outcome->first = context->Save(VARIANT_TRUE);
    outcome->second = TakeError().description;
    context->Dispose();
  }
};

TEST_F(Threads, SavingAfterTheThreadClosedItsConnectionIsAnError) {
  const auto outcome = std::make_shared<std::pair<HRESULT, WideText>>();
  std::thread([&] {
    thread_local SavesAtThreadEnd late;
    late.context = NewContext();
    ASSERT_EQ(Load(late.context.Get(), u"CustMaint", u"C1044", u"admin"), S_OK);
    ASSERT_EQ(AddTo(late.context.Get(), u"Cust.General", u"too late"), S_OK);
    late.outcome = outcome;
  }).join();
  EXPECT_EQ(outcome->first, -1);
  EXPECT_THAT(outcome->second, BeginsWith(u"The thread is ending"));
}

}  // namespace
}  // namespace quorvel::test
