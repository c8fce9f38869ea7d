// The property store over the current row of a record set.

#include <gtest/gtest.h>

#include <memory>

#include "BackendDatabase.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataProp.h"
#include "foundation/CQKDataProp.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"

namespace {

const char* kSchema =
    "CREATE TABLE Item (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT, Note TEXT, Count INTEGER, "
    "Ratio REAL, Flag INTEGER);"
    "INSERT INTO Item (Name, Note, Count, Ratio, Flag) VALUES ('北京', NULL, 70000, 2.5, 1);"
    "INSERT INTO Item (Name, Note, Count, Ratio, Flag) VALUES ('负数', 'x', -70000, -0.25, 0);";

class CQKDataPropTest : public BackendFixture {
 protected:
  void SetUp() override {
    BackendFixture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    Seed(kSchema);
    rs = std::make_unique<CADORecordset>(&db);
    ASSERT_TRUE(rs->Open(L"select * from Item order by ID"));
  }

  // Writes one row through the store: body fills it, then the row is stored.
  template <class Body>
  void WriteNewRow(Body body) {
    CADORecordset writer(&db);
    ASSERT_TRUE(writer.Open(L"select * from Item where 1=0"));
    ASSERT_TRUE(writer.AddNew());
    CQKDataProp store(&writer);
    body(store);
    ASSERT_TRUE(writer.Update());
  }
  std::string Stored(const std::string& column) const {
    return Query("select " + column + " from Item order by ID desc limit 1");
  }

  std::unique_ptr<CADORecordset> rs;
};

}  // namespace

TEST_P(CQKDataPropTest, ReadInt16KeepsTheLow16Bits) {
  CQKDataProp store(rs.get());
  short value = 0;
  EXPECT_EQ(store.readInt16(L"Count", &value), 0);
  EXPECT_EQ(value, 4464);  // 70000 = 0x11170
}

TEST_P(CQKDataPropTest, ReadUInt16KeepsTheLow16Bits) {
  CQKDataProp store(rs.get());
  unsigned short value = 0;
  EXPECT_EQ(store.readUInt16(L"Count", &value), 0);
  EXPECT_EQ(value, 4464);
}

TEST_P(CQKDataPropTest, ReadInt16OfANegativeNumberKeepsItsLowBitsAsSigned) {
  rs->MoveNext();
  CQKDataProp store(rs.get());
  short value = 0;
  store.readInt16(L"Count", &value);
  EXPECT_EQ(value, -4464);  // -70000 & 0xFFFF = 0xEE90
}

TEST_P(CQKDataPropTest, ReadInt16OfAMissingColumnGivesZero) {
  CQKDataProp store(rs.get());
  short value = 12;
  store.readInt16(L"NoSuchColumn", &value);
  EXPECT_EQ(value, 0);
}

TEST_P(CQKDataPropTest, ReadStringOfANullColumnGivesAnEmptySeparatelyAllocatedText) {
  CQKDataProp store(rs.get());
  wchar_t* first = nullptr;
  wchar_t* second = nullptr;
  EXPECT_EQ(store.readString(L"Note", &first), 0);
  store.readString(L"Note", &second);
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  EXPECT_EQ(first[0], L'\0');
  delete[] first;
  delete[] second;
}

TEST_P(CQKDataPropTest, ReadStringOfAMissingColumnGivesAnEmptyText) {
  CQKDataProp store(rs.get());
  wchar_t* text = nullptr;
  store.readString(L"NoSuchColumn", &text);
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text[0], L'\0');
  delete[] text;
}

TEST_P(CQKDataPropTest, ReadStringGivesACopyTheCallerOwns) {
  CQKDataProp store(rs.get());
  wchar_t* text = nullptr;
  store.readString(L"name", &text);  // column names ignore case
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(CString(text), L"北京");
  delete[] text;
}

TEST_P(CQKDataPropTest, NumbersAreReadAsTheirTypes) {
  CQKDataProp store(rs.get());
  long count = 0;
  unsigned long unsignedCount = 0;
  int asInt = 0;
  double ratio = 0;
  bool flag = false;
  store.readInt32(L"Count", &count);
  store.readUInt32(L"Count", &unsignedCount);
  store.readInt(L"Count", &asInt);
  store.readDouble(L"Ratio", &ratio);
  store.readBool(L"Flag", &flag);
  EXPECT_EQ(count, 70000);
  EXPECT_EQ(unsignedCount, 70000u);
  EXPECT_EQ(asInt, 70000);
  EXPECT_EQ(ratio, 2.5);
  EXPECT_TRUE(flag);
}

TEST_P(CQKDataPropTest, AFailedReadLeavesTheTargetAsItWas) {
  CQKDataProp store(rs.get());
  long missing = 41;
  double text = 1.5;
  EXPECT_EQ(store.readInt32(L"NoSuchColumn", &missing), 0);
  EXPECT_EQ(store.readDouble(L"Name", &text), 0);  // '北京' is no number
  EXPECT_EQ(missing, 41);
  EXPECT_EQ(text, 1.5);
}

TEST_P(CQKDataPropTest, ReadCharLeavesTheTargetAsItWas) {
  CQKDataProp store(rs.get());
  char value = 'q';
  EXPECT_EQ(store.readChar(L"Count", &value), 0);
  EXPECT_EQ(value, 'q');
}

TEST_P(CQKDataPropTest, BytesAreNeitherReadNorWritten) {
  CQKDataProp store(rs.get());
  unsigned char buffer[4] = {1, 2, 3, 4};
  EXPECT_EQ(store.readBytes(L"Name", buffer, sizeof buffer), 0);
  EXPECT_EQ(buffer[0], 1);
  WriteNewRow([&](CQKDataProp& row) {
    row.writeString(L"Name", L"bytes");
    EXPECT_EQ(row.writeBytes(L"Note", buffer, sizeof buffer), 0);
  });
  EXPECT_EQ(Stored("Note"), "<null>");
}

TEST_P(CQKDataPropTest, AWriteToAMissingColumnIsSwallowedAndTheOthersAreWritten) {
  WriteNewRow([](CQKDataProp& row) {
    EXPECT_EQ(row.writeString(L"Name", L"上海"), 0);
    EXPECT_EQ(row.writeDouble(L"NoSuchColumn", 1.0), 0);
    EXPECT_EQ(row.writeInt32(L"Count", 31), 0);
  });
  EXPECT_EQ(Stored("Name"), "上海");
  EXPECT_EQ(Stored("Count"), "31");
}

TEST_P(CQKDataPropTest, SmallIntegersAndCharactersAreWrittenAsInt) {
  WriteNewRow([](CQKDataProp& row) {
    row.writeInt16(L"Count", static_cast<short>(-2));
    row.writeUInt16(L"Flag", static_cast<unsigned short>(65535));
    row.writeChar(L"Note", 'A');
  });
  EXPECT_EQ(Stored("Count"), "-2");
  EXPECT_EQ(Stored("Flag"), "65535");
  EXPECT_EQ(Stored("Note"), "65");
}

TEST_P(CQKDataPropTest, EveryOtherTypeIsWrittenAsItIs) {
  WriteNewRow([](CQKDataProp& row) {
    row.writeInt(L"Count", -7);
    row.writeUInt32(L"Flag", 4000000000UL);
    row.writeDouble(L"Ratio", 0.125);
    row.writeString(L"Name", L"重庆");
  });
  EXPECT_EQ(Stored("Count"), "-7");
  EXPECT_EQ(Stored("Flag"), "4000000000");
  EXPECT_EQ(Stored("Ratio"), "0.125");
  EXPECT_EQ(Stored("Name"), "重庆");
}

TEST_P(CQKDataPropTest, WriteBoolStoresOneOrZero) {
  WriteNewRow([](CQKDataProp& row) {
    row.writeBool(L"Flag", true);
    row.writeBool(L"Count", false);
  });
  EXPECT_EQ(Stored("Flag"), "1");
  EXPECT_EQ(Stored("Count"), "0");
}

TEST(CQKDataProp, AStoreWithoutARecordSetReadsAndWritesNothing) {
  CQKDataProp store;
  long value = 3;
  wchar_t* text = nullptr;
  EXPECT_EQ(store.readInt32(L"Count", &value), 0);
  EXPECT_EQ(store.writeInt32(L"Count", 9), 0);
  EXPECT_EQ(store.readString(L"Name", &text), 0);
  EXPECT_EQ(value, 3);
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text[0], L'\0');
  delete[] text;
}

TEST_P(CQKDataPropTest, ACopyReadsTheSameRow) {
  CQKDataProp store(rs.get());
  CQKDataProp copy(store);
  CQKDataProp assigned;
  assigned = store;
  rs->MoveNext();
  long a = 0, b = 0;
  copy.readInt32(L"Count", &a);
  assigned.readInt32(L"Count", &b);
  EXPECT_EQ(a, -70000);
  EXPECT_EQ(b, -70000);
}

TEST_P(CQKDataPropTest, AnExchangeOverTheStoreReadsTheRowByName) {
  CQKDataProp store(rs.get());
  CADataExchange exchange{CADataProp<CQKDataProp>(&store)};
  CADataExchange copy(exchange);
  CString name;
  double ratio = 0;
  EXPECT_EQ(copy.ReadItem(L"Name", &name), 0);
  EXPECT_EQ(exchange.ReadItem(L"Ratio", &ratio), 0);
  EXPECT_EQ(name, L"北京");
  EXPECT_EQ(ratio, 2.5);
}

QK_ON_BOTH_BACKENDS(CQKDataPropTest);
