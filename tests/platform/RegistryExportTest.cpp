// The export format as tables of texts: what can be read and written, and that every other byte stays.

#include "platform/RegistryExport.h"

#include <gtest/gtest.h>

#include <vector>

namespace quorvel::registry {
namespace {

constexpr const char* kKey = "HKEY_LOCAL_MACHINE\\Software\\Tarnwick";

RegistryExport Parsed(const std::string& text) {
  auto file = RegistryExport::Parse(text);
  if (!file) throw std::runtime_error("not read: " + text);
  return *std::move(file);
}

/// A file with `lines` under the component's key.
RegistryExport WithLines(const std::string& lines) {
  return Parsed("Windows Registry Editor Version 5.00\n\n[" + std::string(kKey) + "]\n" + lines);
}

std::string TextOf(const RegistryExport& file, const char* name) {
  const auto value = file.Find(kKey, name);
  return !value ? "(none)" : value->type == ValueType::String ? value->text : "(other)";
}

TEST(RegistryExport, ChangesOnlyOneLine) {
  const std::string before =
      "\xEF\xBB\xBFWindows Registry Editor Version 5.00\r\n; by hand\r\n\r\n"
      "[HKEY_LOCAL_MACHINE\\Software\\Other]\r\n\"Server\"=\"theirs\"\r\nnot a line at all\r\n"
      "\"Blob\"=hex:01,02,\\\r\n  03\r\n[hkey_local_machine\\SOFTWARE\\tarnwick]\r\n";
  const std::string values = "\"server\" = \"old\"\r\n\"Broken\"=\"no end\r\n@=\"default\"\r\n";
  const std::string after = "; the next key\r\n\r\n[HKEY_LOCAL_MACHINE\\Software\\Last]\r\n\"Server\"=\"last\"";
  RegistryExport file = Parsed(before + values + after);
  EXPECT_EQ(file.Text(), before + values + after);
  EXPECT_EQ(TextOf(file, ""), "default");

  ASSERT_TRUE(file.SetString(kKey, "Server", "new"));
  ASSERT_TRUE(file.SetString(kKey, "Broken", ""));
  EXPECT_EQ(file.Text(), before + "\"Server\"=\"new\"\r\n\"Broken\"=\"\"\r\n@=\"default\"\r\n" + after);

  ASSERT_TRUE(file.AddKey("HKEY_LOCAL_MACHINE\\New"));
  EXPECT_TRUE(file.Text().ends_with("\"Server\"=\"last\"\r\n\r\n[HKEY_LOCAL_MACHINE\\New]\r\n"));
}

TEST(RegistryExport, ReadsBackAnyText) {
  for (const auto& text : std::vector<std::string>{
           "", "SQL1\\NEWS", "say \"hi\"", "\\", "a;b=c", " blanks ", "Größe 日本 😀", "tab\there", "line\r\nbreak",
           "\n", "[x]", "a\nb \\\" 😀", "trailing\\\\", "\xFF not UTF-8", std::string("a\0b", 3)}) {
    RegistryExport file = WithLines("");
    ASSERT_TRUE(file.SetString(kKey, "Na\"me\\", text));
    EXPECT_EQ(TextOf(Parsed(file.Text()), "na\"ME\\"), text);
  }
}

TEST(RegistryExport, RefusesChangesThatTheFormatCannotExpress) {
  RegistryExport file = WithLines("");
  const std::string before = file.Text();
  EXPECT_FALSE(file.SetString(kKey, "Bad", "\xFF\n")) << "the format cannot express it";
  EXPECT_FALSE(file.SetString(kKey, "two\nlines", ""));
  EXPECT_FALSE(file.SetString("HKEY_LOCAL_MACHINE\\Missing", "Server", ""));
  EXPECT_EQ(file.Text(), before);
}

TEST(RegistryExport, ReadsEveryFormOfAValue) {
  const std::pair<const char*, const char*> cases[] = {
      {"\"V\"=\"HOST\\INST\"", "HOST\\INST"},  // a backslash that was not doubled
      {"\"V\"=\"a\\\\b\\\"\" ; why", "a\\b\""},
      {"\t\"v\"\t=\t\"x\"", "x"},
      {"\"V\"=\"\xEF\xBB\xBFx\"", "\xEF\xBB\xBFx"},
      {"\"V\"=hex(1):41,00,\\\n  42,00,00,00", "AB"},
      {"\"V\"=HEX(1):3d,d8,\\\n00,de", "😀"},
      {"\"V\"=dword:0000002a", "(other)"},
      {"\"V\"=dword:2A ; why", "(other)"},
      {"\"V\"=hex:", "(other)"},
      {"\"V\"=\"one\"\n\"V\"=-", "(none)"},
      {"\"V\"=\"one\" two", "(none)"},
      {"\"V\"=dword:xyz", "(none)"},
      {"\"V\"=hex(1):41,00,4", "(none)"},
      {"\"V\"=hex:100", "(none)"},
      {";\"V\"=\"x\"", "(none)"},
      {"\"V\"\n=\"x\"", "(none)"},
      {"[HKEY_LOCAL_MACHINE\\Software\\Tarnwick\n\"V\"=\"of a broken key\"", "(none)"},
      {"[-HKEY_LOCAL_MACHINE\\Software\\Tarnwick]\n\"V\"=\"x\"", "(none)"},
      {"\"V\"=hex:00,\\", "(none)"},
  };
  for (const auto& [lines, expected] : cases) {
    const RegistryExport file = WithLines(lines);
    EXPECT_EQ(TextOf(file, "V"), expected) << lines;
    EXPECT_EQ(file.Text(), WithLines("").Text() + lines);
  }
}

TEST(RegistryExport, UsesTheLastDuplicateAndReplacesAll) {
  RegistryExport file = WithLines("\"A\"=\"1\"\n[Other]\n[" + std::string(kKey) + "]\n\"a\"=-\n\"A\"=\"2\"");
  EXPECT_EQ(TextOf(file, "A"), "2");
  ASSERT_TRUE(file.SetString(kKey, "A", "3"));
  EXPECT_EQ(file.Text(), WithLines("[Other]\n[" + std::string(kKey) + "]\n\"A\"=\"3\"\n").Text());
}

TEST(RegistryExport, NamesTheFaultsOfItsLines) {
  RegistryExport file = WithLines(
      "; =\nServer=SQL1\n\"Database=Ledger\"\n\"UserId\"=\"a\"\nSQL2\n\"Blob\"=hex:01,\\\n02\n\"userid\"=\"b\"\n"
      "Password: c2VjcmV0UGFzcw==\n[Other]\nServer=theirs\n[HKEY_LOCAL_MACHINE\\Software\\Tarnwick\n");
  EXPECT_EQ(
      file.Problems(kKey),
      (std::vector<std::string>{R"(Line 5 has no value that can be read; write it as "Name"="value")",
                                R"(Line 6 has no value that can be read; write it as "Name"="value")",
                                "Line 8 is not understood", R"(Line 11 sets "userid" once more; the last line counts)",
                                R"(Line 12 has no value that can be read; write it as "Name"="value")",
                                "Line 15 names a key without a closing bracket; its values are not read"}));
  EXPECT_TRUE(file.IsUnreadable(kKey, "SERVER"));
  EXPECT_FALSE(file.IsUnreadable(kKey, "Missing"));
  EXPECT_FALSE(file.AddKey("HKEY_LOCAL_MACHINE\\New")) << "line 15 may name it";
  ASSERT_TRUE(file.SetString(kKey, "Server", "SQL1"));
  EXPECT_EQ(TextOf(Parsed(file.Text()), "Server"), "SQL1");
}

TEST(RegistryExport, AValueThatWasCutOffSwallowsNoLine) {
  for (const std::string lines : {"\"Blob\"=hex:01,\\", "\"Blob\"=hex:01,\\\n\"A\"=\"old\"\n"}) {
    RegistryExport file = WithLines(lines);
    ASSERT_TRUE(file.SetString(kKey, "A", "1"));
    ASSERT_TRUE(file.AddKey("HKEY_LOCAL_MACHINE\\New"));
    EXPECT_EQ(TextOf(Parsed(file.Text()), "A"), "1");
    EXPECT_TRUE(Parsed(file.Text()).HasKey("HKEY_LOCAL_MACHINE\\New"));
  }
}

TEST(RegistryExport, ReadsUtf16ExportsAndRefusesForeignFiles) {
  const std::string text = WithLines("\"Server\"=\"Größe 😀\"\r\n").Text();
  std::string exported = "\xFF\xFE";
  for (const char16_t unit :
       u"Windows Registry Editor Version 5.00\r\n[HKEY_LOCAL_MACHINE\\Software\\Tarnwick]\r\n"
       u"\"Server\"=\"Größe 😀\"") {
    if (unit != 0) exported.append({static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)});
  }
  EXPECT_EQ(TextOf(Parsed(exported), "Server"), "Größe 😀");
  for (const std::string& foreign :
       {std::string("root:x:0:0::/:/bin/sh\n"), std::string("REGEDIT4\n"), "\n" + text, exported + "x",
        exported + std::string("\x00\xD8", 2), std::string("\xFE\xFF\0W", 4)}) {
    EXPECT_FALSE(RegistryExport::Parse(foreign)) << foreign;
  }
}

}  // namespace
}  // namespace quorvel::registry
