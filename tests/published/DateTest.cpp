#include <cmath>
#include <limits>

#include "tests/published/HostTest.h"

namespace quorvel::test {
namespace {

using Dates = HostTest;

TEST_F(Dates, AreKeptToTheMillisecond) {
  constexpr double kMillisecond = 1 / 86'400'000.0;
  for (const DATE date : {0.0, 0.5, 1.25, 45362.5625, 45362.999 + kMillisecond, -1.0, -1.25, -1.75, -0.0,
                          -657434.0,               // 0100-01-01
                          -657434.99, 2958465.75,  // 9999-12-31
                          2958465.99998}) {
    const auto remark = NewRemark();
    EXPECT_EQ(remark->put_DateStamp(date), S_OK) << date;
    EXPECT_NEAR(Read(remark.Get(), &_Remark::get_DateStamp), date, kMillisecond / 2) << date;
  }
  // Between -1 and 0 the day is the first one: its time of day counts forwards.
  const auto remark = NewRemark();
  EXPECT_EQ(remark->put_DateStamp(-0.25), S_OK);
  EXPECT_EQ(Read(remark.Get(), &_Remark::get_DateStamp), 0.25);
}

TEST_F(Dates, ThatAreNoneAreRefusedAndChangeNothing) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const auto remark = NewRemark();
  EXPECT_EQ(remark->put_DateStamp(45000), S_OK);
  for (const DATE date : {std::nan(""), kInfinity, -kInfinity, -657435.0, 2958466.0, 1e300, -1e300,
                          // rounded to the millisecond it is in a year that a date cannot hold
                          std::nextafter(2958466.0, 0.0)}) {
    EXPECT_EQ(remark->put_DateStamp(date), FromNumber(6)) << date;
    EXPECT_EQ(TakeError().description, u"Overflow");
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_DateStamp), 45000);
  }
}

TEST_F(Dates, GoThroughTheDatabase) {
  Run([this] {
    m_database.Run("UPDATE tciMemo SET DateStamp = '18990101 06:00:00' WHERE MemoKey = 1");
    const LoadedContext context;
    EXPECT_EQ(Read(RemarkAt(context.List().Get(), 7).Get(), &_Remark::get_DateStamp), -363.25);
  });
}

}  // namespace
}  // namespace quorvel::test
