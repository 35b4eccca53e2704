#include <cmath>
#include <limits>

#include "tests/published/HostTest.h"

namespace quorvel::test {
namespace {

using Dates = HostTest;

TEST_F(Dates, AreKeptToTheMillisecond) {
  constexpr double kMillisecond = 1 / 86'400'000.0;
  struct Case {
    DATE given;
    DATE expected;
  };
  for (const auto& [given, expected] :
       {Case{0, 0}, Case{-0.0, 0}, Case{45362.5625, 45362.5625}, Case{-1.75, -1.75},
        Case{45362.999 + kMillisecond, 45362.999 + kMillisecond},
        // Between -1 and 0 the time of day counts forwards on day 0.
        Case{-0.25, 0.25},
        // The first moment of the year 100 and the last day of 9999.
        Case{-657434, -657434}, Case{-657434.99, -657434.99}, Case{2958465.99998, 2958465.99998}}) {
    const auto remark = NewRemark();
    EXPECT_EQ(remark->put_DateStamp(given), S_OK) << given;
    EXPECT_NEAR(Read(remark.Get(), &_Remark::get_DateStamp), expected, kMillisecond / 2) << given;
  }
}

TEST_F(Dates, OutOfRangeAreRefusedAndChangeNothing) {
  const auto remark = NewRemark();
  EXPECT_EQ(remark->put_DateStamp(45000), S_OK);
  for (const DATE date : {std::nan(""), -std::numeric_limits<double>::infinity(), -657435.0, 2958466.0, 1e300,
                          // This rounds to the first millisecond of the year 10000.
                          std::nextafter(2958466.0, 0.0)}) {
    EXPECT_EQ(remark->put_DateStamp(date), FromNumber(6)) << date;
    EXPECT_EQ(TakeError().description, u"Overflow");
    EXPECT_EQ(Read(remark.Get(), &_Remark::get_DateStamp), 45000);
  }
}

}  // namespace
}  // namespace quorvel::test
