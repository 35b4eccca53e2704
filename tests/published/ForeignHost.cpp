// A host with an entry point of its own under the name that every COM server has: it still reads the component's
// errors.

#include "tests/support/HostCalls.h"

extern "C" Quorvel::HRESULT DllGetClassObject(Quorvel::REFCLSID /*rclsid*/, Quorvel::REFIID /*riid*/,
                                              void** /*object*/) {
  return Quorvel::E_FAIL;
}

namespace quorvel::test {
namespace {

TEST(ForeignHost, ReadsAndReplacesTheErrorOfTheComponent) {
  const auto remark = NewRemark();
  EXPECT_TRUE(FAILED(remark->Commit()));
  Pointer<IErrorInfo> error;
  ASSERT_EQ(GetErrorInfo(0, error.Put()), S_OK);
  ASSERT_EQ(SetErrorInfo(0, error.Get()), S_OK);
  EXPECT_EQ(TakeError().description, u"Object variable or With block variable not set");
}

}  // namespace
}  // namespace quorvel::test
