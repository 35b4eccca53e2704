#include <barrier>
#include <thread>
#include <vector>

#include "tests/published/HostTest.h"

namespace quorvel::test {
namespace {

using Threads = HostTest;

TEST_F(Threads, EachWithItsOwnContextWorkAtTheSameTime) {
  constexpr int kThreads = 4;
  constexpr int kRounds = 5;
  std::barrier together(kThreads);
  const auto host = [&](int number) {
    const std::string name = "thread " + std::to_string(number);
    const WideText mine(name.begin(), name.end());
    for (int round = 0; round < kRounds; ++round) {
      together.arrive_and_wait();
      const LoadedContext context(u"OrderEntry", u"SO20001", u"admin");
      AnyValue type(u"Ord.Note");
      Text text(mine);
      EXPECT_EQ(context->AddRemark(type.Pointer(), text.ByReference(), Text(mine).Get()), S_OK);
      EXPECT_EQ(context->Save(VARIANT_TRUE), S_OK) << testing::PrintToString(TakeError().description);
      EXPECT_EQ(context->Load(Text(mine).Get(), nullptr, nullptr), -1);
      EXPECT_EQ(TakeError().description, u"ContextID [" + mine + u"] not found");
    }
  };
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int number = 0; number < kThreads; ++number) threads.emplace_back(host, number);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(m_database.Ask("SELECT COUNT(*) FROM tciMemo WHERE MemoText LIKE 'thread %' AND MemoText = UserID"),
            std::to_string(kThreads * kRounds));
  EXPECT_EQ(m_database.Ask("SELECT COUNT(DISTINCT MemoText) FROM tciMemo WHERE MemoText LIKE 'thread %'"),
            std::to_string(kThreads));
}

// A host that ends its threads in any order may drop what is left on another one.
TEST_F(Threads, ObjectsOutliveTheirThreadAndAreReleasedOnAnother) {
  Reference<_RemarkContext> context;
  Reference<_RemarkList> list;
  Reference<_Remark> remark;
  Reference<IUnknown> remarks;
  Run([&] {
    context = NewContext();
    ASSERT_EQ(context->Load(Text(u"CustMaint").Get(), Text(u"C1044").Get(), Text(u"admin").Get()), S_OK);
    ASSERT_EQ(context->get_RemarkList(list.Put()), S_OK);
    ASSERT_EQ(list->get_NewEnum(remarks.Put()), S_OK);
    remark = RemarkAt(list.Get(), 1);
    EXPECT_EQ(NewContext()->Load(Text(u"None").Get(), nullptr, nullptr), -1);
  });
  EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
  EXPECT_EQ(Read(remark.Get(), &_Remark::get_UserID), u"jsmith");
  EXPECT_EQ(context->Dispose(), S_OK);
}

TEST_F(Threads, AnErrorThatNobodyTookGoesWithItsThread) {
  Run([] { EXPECT_EQ(NewContext()->Load(Text(u"None").Get(), nullptr, nullptr), -1); });
  EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

}  // namespace
}  // namespace quorvel::test
