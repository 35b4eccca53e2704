// The recordset over rows in memory: walking, filters, bookmarks, and the errors of a closed one.

#include "ado/Recordset.h"

#include "tests/ado/FakeSession.h"

namespace quorvel::ado {
namespace {

using namespace test;

RowSet Letters(std::string_view letters) {
  RowSet rows({{"Key", DataType::Integer}, {"Letter", DataType::VarChar}});
  for (const char& letter : letters) {
    rows.AppendInteger(&letter - letters.data() + 1);
    rows.AppendText({&letter, 1});
  }
  return rows;
}

std::string Walk(Recordset& recordset) {
  std::string seen;
  const Field letter = recordset.Fields("LETTER");
  for (; !recordset.EndOfFile(); recordset.MoveNext()) seen += ToText(letter.Value());
  return seen;
}

TEST(Recordset, WalksItsRowsToTheEnd) {
  Recordset recordset(nullptr, Letters("abc"));
  EXPECT_EQ(recordset.RecordCount(), 3);
  EXPECT_EQ(Walk(recordset), "abc");
  const Field key = recordset.Fields(std::size_t{0});
  EXPECT_EQ(Caught([&] { (void)key.Value(); }).Number(), ErrorNumber::AdoNoCurrentRecord);
  EXPECT_EQ(Caught([&] { recordset.MoveNext(); }).Number(), ErrorNumber::AdoNoCurrentRecord);
  recordset.MoveLast();
  EXPECT_EQ(key.Value(), Value{std::int64_t{3}});
  recordset.MoveFirst();
  EXPECT_EQ(Walk(recordset), "abc");
  EXPECT_THAT(Caught([&] { (void)recordset.Fields("Letters"); }).Description(), HasSubstr("\"Letters\""));
  EXPECT_EQ(Caught([&] { (void)recordset.Fields(2); }).Number(), ErrorNumber::AdoItemNotFound);

  Recordset empty(nullptr, Letters(""));
  EXPECT_TRUE(empty.EndOfFile());
  for (const auto& move : {&Recordset::MoveFirst, &Recordset::MoveLast}) {
    EXPECT_EQ(Caught([&] { (empty.*move)(); }).Number(), ErrorNumber::AdoNoCurrentRecord);
  }
  EXPECT_EQ(Caught([&] { (void)empty.Bookmark(); }).Number(), ErrorNumber::AdoNoCurrentRecord);
}

TEST(Recordset, FiltersAndBookmarksAlsoWhenDetached) {
  FakeEngine engine;
  auto connection = Connect(engine);
  const std::weak_ptr<Connection> watched = connection;
  Recordset recordset(std::move(connection), Letters("abAcab"));
  recordset.MoveLast();
  recordset.SetFilter("Letter='a'");
  EXPECT_EQ(recordset.RecordCount(), 3);
  EXPECT_EQ(Walk(recordset), "aAa");
  recordset.MoveLast();
  EXPECT_EQ(recordset.Bookmark(), 5);
  recordset.SetBookmark(3);
  EXPECT_EQ(Walk(recordset), "Aa");

  recordset.SetBookmark(3);
  EXPECT_FALSE(watched.expired());
  recordset.SetActiveConnection(nullptr);
  EXPECT_TRUE(watched.expired());
  for (const std::int32_t wrong : {0, -1, 7, 2, std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(Caught([&] { recordset.SetBookmark(wrong); }).Number(), ErrorNumber::AdoInvalidArgument) << wrong;
  }
  EXPECT_EQ(Caught([&] { recordset.SetFilter("Letter='O'Brien'"); }).Number(), ErrorNumber::AdoInvalidArgument);
  EXPECT_EQ(recordset.Filter(), "Letter='a'");
  EXPECT_EQ(recordset.At(2, 1), Value{"A"});
  EXPECT_EQ(recordset.BookmarkAt(3), 5);
  for (const std::int32_t wrong : {0, 4}) {
    EXPECT_EQ(Caught([&] { (void)recordset.BookmarkAt(wrong); }).Number(), ErrorNumber::AdoInvalidArgument) << wrong;
  }
  EXPECT_EQ(Caught([&] { (void)recordset.At(1, 2); }).Number(), ErrorNumber::AdoItemNotFound);
  EXPECT_EQ(recordset.Bookmark(), 3) << "neither a refused move or filter nor reading another row moves";

  recordset.SetFilter("Letter='nobody'");
  EXPECT_TRUE(recordset.EndOfFile());
  EXPECT_EQ(recordset.RecordCount(), 0);
  recordset.SetFilter("");
  EXPECT_EQ(recordset.Bookmark(), 1);
  EXPECT_EQ(Walk(recordset), "abAcab");
}

TEST(Recordset, IsClosedWithoutAResultSet) {
  FakeEngine engine;
  const auto connection = Connect(engine);
  Recordset recordset;
  recordset.Open("UPDATE x", connection);
  EXPECT_FALSE(recordset.IsOpen());
  const std::vector<std::function<void()>> operations = {
      [&] { (void)recordset.Fields("Key"); }, [&] { (void)recordset.EndOfFile(); }, [&] { recordset.MoveFirst(); },
      [&] { recordset.SetFilter(""); },       [&] { (void)recordset.Filter(); },    [&] { recordset.SetBookmark(1); }};
  for (const auto& operation : operations) EXPECT_EQ(Caught(operation).Number(), ErrorNumber::AdoObjectClosed);
  engine.columns = {{"Key", DataType::Integer}};
  recordset.Open("SELECT Key FROM x", connection);
  EXPECT_TRUE(recordset.EndOfFile());
  EXPECT_EQ(Caught([&] { recordset.Open("SELECT 1", connection); }).Number(), ErrorNumber::AdoObjectOpen);
  EXPECT_EQ(Caught([&] { Recordset().Open("SELECT 1", nullptr); }).Number(), ErrorNumber::AdoInvalidConnection);
}

TEST(RowSet, KeepsCellsOfEveryKindAndTextsOfEverySize) {
  constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
  RowSet rows({{"Any", DataType::Empty}});
  std::vector<Value> expected = {Null{}, true, kLeast, -0.5, kZeroDate};
  rows.AppendNull();
  rows.AppendBoolean(true);
  rows.AppendInteger(kLeast);
  rows.AppendReal(-0.5);
  rows.AppendDateTime(kZeroDate);
  std::vector<std::string> texts = {"", std::string("a\0b\0", 4), "Grüße, 世界 🙂"};
  // Around the block sizes, and small ones between large ones, where blocks change.
  for (const std::size_t size : {1023U, 1024U, 1025U, 4096U, 300000U, 2U, 1048577U, 3U}) texts.emplace_back(size, 'x');
  for (int i = 0; i < 20000; ++i) texts.push_back("text number " + std::to_string(i));
  for (const std::string& text : texts) {
    rows.AppendText(text);
    expected.emplace_back(text);
  }
  const RowSet moved = std::move(rows);
  ASSERT_EQ(moved.RowCount(), expected.size());
  for (std::size_t row = 0; row < expected.size(); ++row) ASSERT_EQ(moved.At(row, 0), expected[row]) << row;
  EXPECT_EQ(moved.TextAt(6, 0), std::string_view("a\0b\0", 4));
  EXPECT_EQ(moved.TextAt(0, 0), std::nullopt);
}

}  // namespace
}  // namespace quorvel::ado
