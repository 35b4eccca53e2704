// Registration in hives in memory. Unregistering and a failure at any step restore the hives.

#include <gtest/gtest.h>

#include "runtime/published/Registration.h"
#include "tests/published/MemoryRegistry.h"

namespace quorvel::published {
namespace {

using registry::Outcome;
using test::HiveContent;
using test::MemoryRegistry;

const ServerFile kFile64{R"(C:\Program Files\Host\x64\Quorvel.dll)", true};
const ServerFile kFile32{R"(C:\Program Files\Host\x86\Quorvel.dll)", false};
const std::string kEventSource = R"(SYSTEM\CurrentControlSet\Services\EventLog\Application\Quorvel)";
const std::string kLibrary = R"(Software\Classes\TypeLib\{42F21CB3-2EBB-418D-80AB-EE9284E1E9E0}\1.1)";

/// One line for each value: key [name] = text.
std::string Listing(const HiveContent& content) {
  std::string listing;
  for (const auto& [place, text] : content.texts) listing += place.first + " [" + place.second + "] = " + text + '\n';
  return listing;
}

/// A hive with the registrations of other programs and an empty key.
HiveContent UsedHive() {
  MemoryRegistry hive;
  for (const char* key : {R"(Software\Classes\CLSID\{00000000-0000-0000-0000-000000000001}\InprocServer32)",
                          R"(Software\Classes\Interface\{00000000-0000-0000-0000-000000000002})",
                          R"(Software\Classes\TypeLib\{00000000-0000-0000-0000-000000000003}\1.0)",
                          R"(SYSTEM\CurrentControlSet\Services\EventLog\Application\Other)"}) {
    static_cast<void>(hive.Write(key, "", "of another program"));
  }
  hive.content.keys.insert(R"(Software\Classes\CLSID\{00000000-0000-0000-0000-000000000004})");
  return hive.content;
}

class RegistrationTest : public testing::Test {
 protected:
  const HiveContent m_before = UsedHive();
  MemoryRegistry m_machine{m_before};
  MemoryRegistry m_user{m_before};
};

TEST(RegistryEntriesTest, DescribeClassInterfaceAndLibrary) {
  const auto remark = PublishedClasses().subspan(1, 1);
  MemoryRegistry hive;
  for (const RegistryEntry& entry : ClassEntries(remark, kFile64)) {
    EXPECT_EQ(std::nullopt, hive.Text(entry.Path(), entry.name)) << "twice: " << entry.Path();
    static_cast<void>(hive.Write(entry.Path(), entry.name, entry.text));
  }
  EXPECT_EQ(R"(Software\Classes\CLSID\{878C05C7-73A1-4CD6-8392-74C0FDB3051C} [] = Quorvel.Remark
Software\Classes\CLSID\{878C05C7-73A1-4CD6-8392-74C0FDB3051C}\InprocServer32 [] = C:\Program Files\Host\x64\Quorvel.dll
Software\Classes\CLSID\{878C05C7-73A1-4CD6-8392-74C0FDB3051C}\InprocServer32 [ThreadingModel] = Apartment
Software\Classes\CLSID\{878C05C7-73A1-4CD6-8392-74C0FDB3051C}\ProgID [] = Quorvel.Remark
Software\Classes\CLSID\{878C05C7-73A1-4CD6-8392-74C0FDB3051C}\Programmable [] = 
Software\Classes\CLSID\{878C05C7-73A1-4CD6-8392-74C0FDB3051C}\TypeLib [] = {42F21CB3-2EBB-418D-80AB-EE9284E1E9E0}
Software\Classes\CLSID\{878C05C7-73A1-4CD6-8392-74C0FDB3051C}\Version [] = 1.1
Software\Classes\Interface\{45C92F4D-006D-4800-83CF-4A99C3CACB26} [] = _Remark
Software\Classes\Interface\{45C92F4D-006D-4800-83CF-4A99C3CACB26}\ProxyStubClsid32 [] = {00020424-0000-0000-C000-000000000046}
Software\Classes\Interface\{45C92F4D-006D-4800-83CF-4A99C3CACB26}\TypeLib [] = {42F21CB3-2EBB-418D-80AB-EE9284E1E9E0}
Software\Classes\Interface\{45C92F4D-006D-4800-83CF-4A99C3CACB26}\TypeLib [Version] = 1.1
Software\Classes\Quorvel.Remark [] = Quorvel.Remark
Software\Classes\Quorvel.Remark\CLSID [] = {878C05C7-73A1-4CD6-8392-74C0FDB3051C}
Software\Classes\TypeLib\{42F21CB3-2EBB-418D-80AB-EE9284E1E9E0}\1.1 [] = Quorvel remarks
Software\Classes\TypeLib\{42F21CB3-2EBB-418D-80AB-EE9284E1E9E0}\1.1\0\win64 [] = C:\Program Files\Host\x64\Quorvel.dll
Software\Classes\TypeLib\{42F21CB3-2EBB-418D-80AB-EE9284E1E9E0}\1.1\409\win64 [] = C:\Program Files\Host\x64\Quorvel.dll
Software\Classes\TypeLib\{42F21CB3-2EBB-418D-80AB-EE9284E1E9E0}\1.1\FLAGS [] = 0
Software\Classes\TypeLib\{42F21CB3-2EBB-418D-80AB-EE9284E1E9E0}\1.1\HELPDIR [] = C:\Program Files\Host\x64
)",
            Listing(hive.content));
  // Two creatable classes and four interfaces.
  EXPECT_EQ(5U + 2 * 9 + 4 * 4, ClassEntries(PublishedClasses(), kFile64).size());
}

TEST_F(RegistrationTest, UnregisteringAfterTwoRegistrationsRestoresTheHives) {
  for (const ServerFile& file : {kFile64, kFile32}) {
    ASSERT_EQ(Outcome::Done, Register(m_machine, m_user, file));
    EXPECT_EQ(file.path, m_machine.Text(kLibrary + (file.is64Bit ? R"(\409\win64)" : R"(\409\win32)"), ""));
    EXPECT_EQ(file.path, m_machine.Text(kEventSource, "EventMessageFile"));
    EXPECT_EQ(m_before, m_user.content);
    ASSERT_EQ(Outcome::Done, Register(m_machine, m_user, file));
    ASSERT_EQ(Outcome::Done, Unregister(m_machine, m_user, file));
    EXPECT_EQ(m_before, m_machine.content);
    EXPECT_EQ(m_before, m_user.content);
  }
  EXPECT_EQ(Outcome::Done, Unregister(m_machine, m_user, kFile64)) << "nothing is registered";
}

TEST_F(RegistrationTest, ForeignValuesUnderOurKeysAreKept) {
  ASSERT_EQ(Outcome::Done, Register(m_machine, m_user, kFile64));
  const std::string key = kLibrary + R"(\407\win64)";
  static_cast<void>(m_machine.Write(key, "", "a translation"));
  static_cast<void>(m_machine.Write(R"(Software\Classes\Quorvel.Remark)", "Foreign", "kept"));
  ASSERT_EQ(Outcome::Done, Unregister(m_machine, m_user, kFile64));
  EXPECT_EQ("a translation", m_machine.Text(key, ""));
  EXPECT_EQ("kept", m_machine.Text(R"(Software\Classes\Quorvel.Remark)", "Foreign"));
  EXPECT_EQ(m_before.texts.size() + 2, m_machine.content.texts.size());
}

TEST_F(RegistrationTest, FailureAtAnyStepRestoresTheHives) {
  const ServerFile older{R"(C:\Older\Quorvel.dll)", true};
  const int steps = static_cast<int>(ClassEntries(PublishedClasses(), kFile64).size());
  for (const bool registered : {false, true}) {
    if (registered) {
      ASSERT_EQ(Outcome::Done, Register(m_machine, m_user, older));
    }
    const HiveContent before = m_machine.content;
    for (int step = 0; step < steps; ++step) {
      SCOPED_TRACE(step);
      m_machine.failingWrite = step;
      EXPECT_EQ(Outcome::Failed, Register(m_machine, m_user, kFile64));
      EXPECT_EQ(before, m_machine.content);
      EXPECT_EQ(m_before, m_user.content);
    }
  }
}

TEST_F(RegistrationTest, UserWithoutRightsRegistersForHimself) {
  const auto entries = ClassEntries(PublishedClasses(), kFile64);
  for (int step = 0; step < static_cast<int>(entries.size()); ++step) {
    SCOPED_TRACE(step);
    m_machine.failure = Outcome::Denied;
    m_machine.failingWrite = step;
    ASSERT_EQ(Outcome::Done, Register(m_machine, m_user, kFile64));
    EXPECT_EQ(m_before, m_machine.content);
    EXPECT_EQ(m_before.texts.size() + entries.size(), m_user.content.texts.size());
    ASSERT_EQ(Outcome::Done, Unregister(m_machine, m_user, kFile64));
    EXPECT_EQ(m_before, m_user.content);
  }
  m_machine.failingWrite = m_user.failingWrite = 0;
  m_user.failure = Outcome::Denied;
  EXPECT_EQ(Outcome::Denied, Register(m_machine, m_user, kFile64));
  EXPECT_EQ(m_before, m_user.content);

  m_machine.failingWrite = 0;
  ASSERT_EQ(Outcome::Done, Register(m_machine, m_user, {R"(C:\Own\Quorvel.dll)", true}));
  ASSERT_EQ(Outcome::Done, Register(m_machine, m_user, kFile64));
  EXPECT_EQ(m_before, m_user.content) << "a registration for the machine removes the user's";
}

TEST_F(RegistrationTest, FailureOfTheEventSourceIsIgnored) {
  m_machine.failingWrite = static_cast<int>(ClassEntries(PublishedClasses(), kFile64).size());
  EXPECT_EQ(Outcome::Done, Register(m_machine, m_user, kFile64));
  EXPECT_EQ(kFile64.path, m_machine.Text(kLibrary + R"(\409\win64)", ""));
  EXPECT_FALSE(m_machine.content.keys.contains(kEventSource));
}

TEST_F(RegistrationTest, UnregisteringContinuesAfterADenial) {
  ASSERT_EQ(Outcome::Done, Register(m_machine, m_user, kFile64));
  MemoryRegistry closed;
  closed.failure = Outcome::Denied;
  closed.failingWrite = 0;
  ASSERT_EQ(Outcome::Done, Register(closed, m_user, kFile64));
  m_machine.closed = true;
  EXPECT_EQ(Outcome::Denied, Unregister(m_machine, m_user, kFile64));
  EXPECT_EQ(m_before, m_user.content) << "the user's own registration is gone";
}

TEST_F(RegistrationTest, OtherBitnessKeepsItsEntriesUntilItUnregisters) {
  for (const char* shared : {"", R"(\CLSID)", R"(\Interface)"}) {
    m_machine.content.keys.insert(std::string(R"(Software\Classes\WOW6432Node)") + shared);
  }
  const HiveContent empty = m_machine.content;
  m_machine.isFor32Bit = true;
  ASSERT_EQ(Outcome::Done, Register(m_machine, m_user, kFile32));
  const HiveContent only32 = m_machine.content;

  m_machine.isFor32Bit = false;
  ASSERT_EQ(Outcome::Done, Register(m_machine, m_user, kFile64));
  EXPECT_EQ(kFile32.path, m_machine.Text(kLibrary + R"(\409\win32)", ""));
  // The entries that stay are never deleted in between, so a failing write does not damage them.
  m_machine.failingWrite = 0;
  ASSERT_EQ(Outcome::Done, Unregister(m_machine, m_user, kFile64));
  EXPECT_EQ(Listing(only32), Listing(m_machine.content)) << "no entry names the removed file";

  m_machine.isFor32Bit = true;
  ASSERT_EQ(Outcome::Done, Unregister(m_machine, m_user, kFile32));
  EXPECT_EQ(empty, m_machine.content);
}

}  // namespace
}  // namespace quorvel::published
