// The named exchange (CADataExchange), the in-memory store behind it (CAMemoryDataProp) and the
// adapter that lets any class with the store's operations serve as a store (CADataProp<T>).

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "datakit/ADataDef.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataProp.h"
#include "datakit/CADataPropBase.h"
#include "datakit/CAMemoryDataProp.h"
#include "mfc/CString.h"

namespace {

// A store class of its own that only records what reaches it: it does not derive from
// CADataPropBase, so CADataProp<RecordingStore> is the only way an exchange can use it.
class RecordingStore {
 public:
  struct Call {
    std::string op;
    std::wstring name;
    long long integer = 0;  // the integer, char or bool argument of a write
    double real = 0.0;
    std::wstring text;
    const void* buffer = nullptr;
    unsigned long size = 0;
  };

  std::vector<Call> calls;
  int result = 0;  // what every operation returns

  int readChar(const wchar_t* n, char* v) { return Read("readChar", n, v, 'q'); }
  int writeChar(const wchar_t* n, char v) { return WriteInteger("writeChar", n, v); }
  int readString(const wchar_t* n, wchar_t** v) {
    Record("readString", n);
    if (result == 0) {
      // The caller frees this with delete[], as the store contract says.
      static const wchar_t kText[] = L"记录";
      auto* copy = new wchar_t[3];
      std::copy(kText, kText + 3, copy);
      *v = copy;
    }
    return result;
  }
  int writeString(const wchar_t* n, const wchar_t* v) {
    Call& c = Record("writeString", n);
    c.text = v ? v : L"<null>";
    return result;
  }
  int readInt32(const wchar_t* n, long* v) { return Read("readInt32", n, v, -32L); }
  int writeInt32(const wchar_t* n, long v) { return WriteInteger("writeInt32", n, v); }
  int readInt16(const wchar_t* n, short* v) { return Read("readInt16", n, v, static_cast<short>(-16)); }
  int writeInt16(const wchar_t* n, short v) { return WriteInteger("writeInt16", n, v); }
  int readUInt32(const wchar_t* n, unsigned long* v) { return Read("readUInt32", n, v, 32UL); }
  int writeUInt32(const wchar_t* n, unsigned long v) { return WriteInteger("writeUInt32", n, v); }
  int readUInt16(const wchar_t* n, unsigned short* v) {
    return Read("readUInt16", n, v, static_cast<unsigned short>(16));
  }
  int writeUInt16(const wchar_t* n, unsigned short v) { return WriteInteger("writeUInt16", n, v); }
  int readInt(const wchar_t* n, int* v) { return Read("readInt", n, v, 41); }
  int writeInt(const wchar_t* n, int v) { return WriteInteger("writeInt", n, v); }
  int readBool(const wchar_t* n, bool* v) { return Read("readBool", n, v, true); }
  int writeBool(const wchar_t* n, bool v) { return WriteInteger("writeBool", n, v); }
  int readDouble(const wchar_t* n, double* v) { return Read("readDouble", n, v, 6.25); }
  int writeDouble(const wchar_t* n, double v) {
    Call& c = Record("writeDouble", n);
    c.real = v;
    return result;
  }
  int readBytes(const wchar_t* n, void* b, unsigned long s) {
    Call& c = Record("readBytes", n);
    c.buffer = b;
    c.size = s;
    return result;
  }
  int writeBytes(const wchar_t* n, const void* b, unsigned long s) {
    Call& c = Record("writeBytes", n);
    c.buffer = b;
    c.size = s;
    return result;
  }

  const Call& Last() const { return calls.back(); }

 private:
  Call& Record(const char* op, const wchar_t* name) {
    Call& call = calls.emplace_back();
    call.op = op;
    call.name = name ? name : L"<null>";
    return call;
  }
  template <class T>
  int WriteInteger(const char* op, const wchar_t* name, T value) {
    Record(op, name).integer = static_cast<long long>(value);
    return result;
  }
  template <class T>
  int Read(const char* op, const wchar_t* name, T* value, T given) {
    Record(op, name);
    if (result == 0) *value = given;
    return result;
  }
};

using RecordingProp = CADataProp<RecordingStore>;

// Values receive their exchange by value; this stands for such a value writing one item.
void WriteWidthThroughAValueParameter(CADataExchange exchange) { exchange.WriteItem(L"Width", 12); }

}  // namespace

// ==== CAMemoryDataProp through CADataExchange =====================================================

TEST(CADataExchange, IntWrittenByNameReadsBack) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  int read = 0;

  ASSERT_EQ(exchange.WriteItem(L"Count", -17), 0);
  ASSERT_EQ(exchange.ReadItem(L"Count", &read), 0);

  EXPECT_EQ(read, -17);
}

TEST(CADataExchange, LongWrittenByNameReadsBack) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  long read = 0;

  ASSERT_EQ(exchange.WriteItem(L"Offset", -2147483647L - 1L), 0);
  ASSERT_EQ(exchange.ReadItem(L"Offset", &read), 0);

  EXPECT_EQ(read, -2147483647L - 1L);
}

TEST(CADataExchange, UnsignedLongWrittenByNameReadsBack) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  unsigned long read = 0;

  ASSERT_EQ(exchange.WriteItem(L"Colour", 0xFFFFFFFFUL), 0);
  ASSERT_EQ(exchange.ReadItem(L"Colour", &read), 0);

  EXPECT_EQ(read, 0xFFFFFFFFUL);
}

TEST(CADataExchange, DoubleWrittenByNameReadsBack) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  double read = 0.0;

  ASSERT_EQ(exchange.WriteItem(L"Elevation", -1.0e-300), 0);
  ASSERT_EQ(exchange.ReadItem(L"Elevation", &read), 0);

  EXPECT_EQ(read, -1.0e-300);
}

TEST(CADataExchange, StringWrittenByNameReadsBack) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  CString read;

  ASSERT_EQ(exchange.WriteItem(L"Address", CString(L"北京市朝阳区")), 0);
  ASSERT_EQ(exchange.ReadItem(L"Address", &read), 0);

  EXPECT_EQ(read, CString(L"北京市朝阳区"));
}

TEST(CADataExchange, EmptyStringWrittenByNameReadsBackEmpty) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  CString read(L"previous");

  ASSERT_EQ(exchange.WriteItem(L"Note", CString()), 0);
  ASSERT_EQ(exchange.ReadItem(L"Note", &read), 0);

  EXPECT_TRUE(read.IsEmpty());
}

TEST(CADataExchange, ItemsWrittenThroughTheExchangeLandInTheStoreItWasBuiltOn) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);

  exchange.WriteItem(L"Width", 3);
  exchange.WriteItem(L"Name", CString(L"梁"));

  EXPECT_EQ(store.GetCount(), 2);
  int width = 0;
  ASSERT_EQ(store.readInt(L"Width", &width), 0);
  EXPECT_EQ(width, 3);
}

TEST(CADataExchange, CopyOfAnExchangeWritesIntoTheSameStore) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  CADataExchange copy(exchange);

  copy.WriteItem(L"Depth", 4.5);
  double read = 0.0;

  ASSERT_EQ(exchange.ReadItem(L"Depth", &read), 0);
  EXPECT_EQ(read, 4.5);
  EXPECT_TRUE(store.HasItem(L"Depth"));
}

TEST(CADataExchange, AssignedExchangeWritesIntoTheSameStore) {
  CAMemoryDataProp store;
  CAMemoryDataProp otherStore;
  CADataExchange exchange(store);
  CADataExchange assigned(otherStore);

  assigned = exchange;
  assigned.WriteItem(L"Height", 9);

  EXPECT_TRUE(store.HasItem(L"Height"));
  EXPECT_FALSE(otherStore.HasItem(L"Height"));
}

TEST(CADataExchange, ExchangePassedByValueWritesIntoTheCallersStore) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);

  WriteWidthThroughAValueParameter(exchange);

  int read = 0;
  ASSERT_EQ(store.readInt(L"Width", &read), 0);
  EXPECT_EQ(read, 12);
}

TEST(CADataExchange, DefaultConstructedExchangeHasNoStore) {
  CADataExchange exchange;

  EXPECT_EQ(exchange.GetStore(), nullptr);
}

TEST(CADataExchange, DefaultConstructedExchangeFailsEveryWriteWithNoStore) {
  CADataExchange exchange;

  EXPECT_EQ(exchange.WriteItem(L"a", 1), ADataDef::AD_NOSTORE);
  EXPECT_EQ(exchange.WriteItem(L"a", 1L), ADataDef::AD_NOSTORE);
  EXPECT_EQ(exchange.WriteItem(L"a", 1UL), ADataDef::AD_NOSTORE);
  EXPECT_EQ(exchange.WriteItem(L"a", 1.0), ADataDef::AD_NOSTORE);
  EXPECT_EQ(exchange.WriteItem(L"a", CString(L"x")), ADataDef::AD_NOSTORE);
}

TEST(CADataExchange, DefaultConstructedExchangeFailsEveryReadWithNoStoreAndKeepsTheTargets) {
  CADataExchange exchange;
  int i = 1;
  long l = 2;
  unsigned long ul = 3;
  double d = 4.0;
  CString s(L"five");

  EXPECT_EQ(exchange.ReadItem(L"a", &i), ADataDef::AD_NOSTORE);
  EXPECT_EQ(exchange.ReadItem(L"a", &l), ADataDef::AD_NOSTORE);
  EXPECT_EQ(exchange.ReadItem(L"a", &ul), ADataDef::AD_NOSTORE);
  EXPECT_EQ(exchange.ReadItem(L"a", &d), ADataDef::AD_NOSTORE);
  EXPECT_EQ(exchange.ReadItem(L"a", &s), ADataDef::AD_NOSTORE);

  EXPECT_EQ(i, 1);
  EXPECT_EQ(l, 2);
  EXPECT_EQ(ul, 3u);
  EXPECT_EQ(d, 4.0);
  EXPECT_EQ(s, CString(L"five"));
}

TEST(CADataExchange, CopyOfAStorelessExchangeIsStoreless) {
  CADataExchange exchange;
  CADataExchange copy(exchange);

  EXPECT_EQ(copy.GetStore(), nullptr);
  EXPECT_EQ(copy.WriteItem(L"a", 1), ADataDef::AD_NOSTORE);
}

TEST(CADataExchange, ReadingAMissingNameFailsAndKeepsEveryTarget) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  exchange.WriteItem(L"Present", 1);
  int i = 10;
  long l = 20;
  unsigned long ul = 30;
  double d = 40.0;
  CString s(L"kept");

  EXPECT_NE(exchange.ReadItem(L"Absent", &i), 0);
  EXPECT_NE(exchange.ReadItem(L"Absent", &l), 0);
  EXPECT_NE(exchange.ReadItem(L"Absent", &ul), 0);
  EXPECT_NE(exchange.ReadItem(L"Absent", &d), 0);
  EXPECT_NE(exchange.ReadItem(L"Absent", &s), 0);

  EXPECT_EQ(i, 10);
  EXPECT_EQ(l, 20);
  EXPECT_EQ(ul, 30u);
  EXPECT_EQ(d, 40.0);
  EXPECT_EQ(s, CString(L"kept"));
}

TEST(CADataExchange, StringItemReadAsIntFailsWithWrongType) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  exchange.WriteItem(L"Name", CString(L"12"));  // text, even though it looks like a number
  int read = 5;

  EXPECT_EQ(exchange.ReadItem(L"Name", &read), ADataDef::AD_WRONGTYPE);

  EXPECT_EQ(read, 5);
}

TEST(CADataExchange, NumberItemReadAsStringFailsAndKeepsTheTarget) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  exchange.WriteItem(L"Width", 12);
  CString read(L"kept");

  EXPECT_EQ(exchange.ReadItem(L"Width", &read), ADataDef::AD_WRONGTYPE);

  EXPECT_EQ(read, CString(L"kept"));
}

TEST(CADataExchange, DoubleItemReadAsIntRoundsToNearest) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  exchange.WriteItem(L"Up", 2.6);
  exchange.WriteItem(L"Down", 2.4);
  exchange.WriteItem(L"Negative", -2.6);
  int up = 0;
  int down = 0;
  int negative = 0;

  ASSERT_EQ(exchange.ReadItem(L"Up", &up), 0);
  ASSERT_EQ(exchange.ReadItem(L"Down", &down), 0);
  ASSERT_EQ(exchange.ReadItem(L"Negative", &negative), 0);

  EXPECT_EQ(up, 3);
  EXPECT_EQ(down, 2);
  EXPECT_EQ(negative, -3);
}

TEST(CADataExchange, IntItemReadAsDoubleConverts) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  exchange.WriteItem(L"Floors", -7);
  double read = 0.5;

  ASSERT_EQ(exchange.ReadItem(L"Floors", &read), 0);

  EXPECT_EQ(read, -7.0);
}

TEST(CADataExchange, ExchangeOverTheAdapterReachesTheCustomStore) {
  RecordingStore recorder;
  CADataExchange exchange{RecordingProp(&recorder)};

  exchange.WriteItem(L"Width", 5);
  exchange.WriteItem(L"Offset", 6L);
  exchange.WriteItem(L"Colour", 7UL);
  exchange.WriteItem(L"Depth", 8.5);
  exchange.WriteItem(L"Name", CString(L"名"));

  ASSERT_EQ(recorder.calls.size(), 5u);
  EXPECT_EQ(recorder.calls[0].op, "writeInt");
  EXPECT_EQ(recorder.calls[0].integer, 5);
  EXPECT_EQ(recorder.calls[1].op, "writeInt32");
  EXPECT_EQ(recorder.calls[1].integer, 6);
  EXPECT_EQ(recorder.calls[2].op, "writeUInt32");
  EXPECT_EQ(recorder.calls[2].integer, 7);
  EXPECT_EQ(recorder.calls[3].op, "writeDouble");
  EXPECT_EQ(recorder.calls[3].real, 8.5);
  EXPECT_EQ(recorder.calls[4].op, "writeString");
  EXPECT_EQ(recorder.calls[4].text, L"名");
  EXPECT_EQ(recorder.calls[4].name, L"Name");
}

TEST(CADataExchange, StringReadTakesTheStoresTextAndFreesIt) {
  // The recorder hands out a new[] array on every read; the exchange must copy and free it (the leak
  // checker of a sanitised build reports it otherwise).
  RecordingStore recorder;
  CADataExchange exchange{RecordingProp(&recorder)};
  CString read;

  ASSERT_EQ(exchange.ReadItem(L"Name", &read), 0);

  EXPECT_EQ(read, CString(L"记录"));
  ASSERT_EQ(recorder.calls.size(), 1u);
  EXPECT_EQ(recorder.Last().op, "readString");
}

TEST(CADataExchange, FailingStoreResultReachesTheCaller) {
  RecordingStore recorder;
  recorder.result = 17;
  CADataExchange exchange{RecordingProp(&recorder)};
  CString text(L"kept");
  int number = 3;

  EXPECT_EQ(exchange.ReadItem(L"Name", &text), 17);
  EXPECT_EQ(exchange.ReadItem(L"Width", &number), 17);
  EXPECT_EQ(exchange.WriteItem(L"Width", 1), 17);

  EXPECT_EQ(text, CString(L"kept"));
  EXPECT_EQ(number, 3);
}

// ==== CAMemoryDataProp ===========================================================================

TEST(CAMemoryDataProp, NewStoreHoldsNoItems) {
  CAMemoryDataProp store;

  EXPECT_EQ(store.GetCount(), 0);
  EXPECT_FALSE(store.HasItem(L"Anything"));
}

TEST(CAMemoryDataProp, NamesIgnoreAsciiCase) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  exchange.WriteItem(L"RoomName", CString(L"卧室"));
  CString read;

  ASSERT_EQ(exchange.ReadItem(L"ROOMNAME", &read), 0);

  EXPECT_EQ(read, CString(L"卧室"));
  EXPECT_TRUE(store.HasItem(L"roomname"));
}

TEST(CAMemoryDataProp, NamesDifferingOnlyInAsciiCaseAreOneItem) {
  CAMemoryDataProp store;

  store.writeInt(L"Width", 1);
  store.writeInt(L"WIDTH", 2);

  EXPECT_EQ(store.GetCount(), 1);
  int read = 0;
  ASSERT_EQ(store.readInt(L"width", &read), 0);
  EXPECT_EQ(read, 2);
}

TEST(CAMemoryDataProp, CaseOfNonAsciiLettersIsNotFolded) {
  // Only ASCII letters fold, as with a table's column names; Ä and ä are two names.
  CAMemoryDataProp store;

  store.writeInt(L"Ä", 1);
  store.writeInt(L"ä", 2);

  EXPECT_EQ(store.GetCount(), 2);
}

TEST(CAMemoryDataProp, ItemsKeepTheOrderOfTheirFirstWriting) {
  CAMemoryDataProp store;

  store.writeInt(L"Zeta", 1);
  store.writeDouble(L"Alpha", 2.0);
  store.writeString(L"Mid", L"three");

  ASSERT_EQ(store.GetCount(), 3);
  EXPECT_EQ(store.GetName(0), CString(L"Zeta"));
  EXPECT_EQ(store.GetName(1), CString(L"Alpha"));
  EXPECT_EQ(store.GetName(2), CString(L"Mid"));
}

TEST(CAMemoryDataProp, RewritingANameReplacesTheValueInPlace) {
  CAMemoryDataProp store;
  store.writeInt(L"First", 1);
  store.writeInt(L"Second", 2);
  store.writeInt(L"Third", 3);

  store.writeString(L"SECOND", L"二");

  ASSERT_EQ(store.GetCount(), 3);
  EXPECT_EQ(store.GetName(0), CString(L"First"));
  EXPECT_EQ(store.GetName(1), CString(L"Second"));  // keeps its first spelling and place
  EXPECT_EQ(store.GetName(2), CString(L"Third"));
  CString read;
  CADataExchange exchange(store);
  ASSERT_EQ(exchange.ReadItem(L"Second", &read), 0);
  EXPECT_EQ(read, CString(L"二"));
}

TEST(CAMemoryDataProp, NameOutsideTheRangeIsEmpty) {
  CAMemoryDataProp store;
  store.writeInt(L"Only", 1);

  EXPECT_TRUE(store.GetName(-1).IsEmpty());
  EXPECT_TRUE(store.GetName(1).IsEmpty());
}

TEST(CAMemoryDataProp, ReadStringAllocatesASeparateArrayTheCallerFreesWithDeleteArray) {
  CAMemoryDataProp store;
  store.writeString(L"City", L"北京");
  CADataPropBase& base = store;
  wchar_t* first = nullptr;
  wchar_t* second = nullptr;

  ASSERT_EQ(base.readString(L"City", &first), 0);
  ASSERT_EQ(base.readString(L"City", &second), 0);
  std::unique_ptr<wchar_t[]> ownFirst(first);
  std::unique_ptr<wchar_t[]> ownSecond(second);

  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  EXPECT_EQ(std::wstring(first), L"北京");
  first[0] = L'X';  // the array is the caller's: changing it leaves the store alone
  EXPECT_EQ(std::wstring(second), L"北京");
  wchar_t* third = nullptr;
  ASSERT_EQ(base.readString(L"City", &third), 0);
  std::unique_ptr<wchar_t[]> ownThird(third);
  EXPECT_EQ(std::wstring(third), L"北京");
}

TEST(CAMemoryDataProp, ReadStringOfAMissingNameFailsAndLeavesThePointer) {
  CAMemoryDataProp store;
  CADataPropBase& base = store;
  wchar_t sentinel[] = L"s";
  wchar_t* value = sentinel;

  EXPECT_EQ(base.readString(L"Missing", &value), ADataDef::AD_NOITEM);

  EXPECT_EQ(value, sentinel);
}

TEST(CAMemoryDataProp, ReadingAMissingNameReturnsNoItem) {
  CAMemoryDataProp store;
  int read = 8;

  EXPECT_EQ(store.readInt(L"Missing", &read), ADataDef::AD_NOITEM);

  EXPECT_EQ(read, 8);
}

TEST(CAMemoryDataProp, NumbersConvertAmongTheIntegerKinds) {
  CAMemoryDataProp store;
  store.writeInt16(L"Small", -300);
  store.writeChar(L"Letter", 'A');
  store.writeBool(L"Flag", true);
  long asLong = 0;
  int asInt = 0;
  double asDouble = 0.0;

  ASSERT_EQ(store.readInt32(L"Small", &asLong), 0);
  ASSERT_EQ(store.readInt(L"Letter", &asInt), 0);
  ASSERT_EQ(store.readDouble(L"Flag", &asDouble), 0);

  EXPECT_EQ(asLong, -300);
  EXPECT_EQ(asInt, 65);
  EXPECT_EQ(asDouble, 1.0);
}

TEST(CAMemoryDataProp, NonZeroNumberReadsAsTrue) {
  CAMemoryDataProp store;
  store.writeInt(L"Zero", 0);
  store.writeInt(L"Seven", 7);
  bool zero = true;
  bool seven = false;

  ASSERT_EQ(store.readBool(L"Zero", &zero), 0);
  ASSERT_EQ(store.readBool(L"Seven", &seven), 0);

  EXPECT_FALSE(zero);
  EXPECT_TRUE(seven);
}

TEST(CAMemoryDataProp, BytesRoundTripIntoABufferOfTheirSize) {
  CAMemoryDataProp store;
  const unsigned char written[] = {1, 2, 3, 250};
  unsigned char read[4] = {};

  ASSERT_EQ(store.writeBytes(L"Blob", written, sizeof written), 0);
  ASSERT_EQ(store.readBytes(L"Blob", read, sizeof read), 0);

  EXPECT_EQ(std::vector<unsigned char>(read, read + 4), std::vector<unsigned char>(written, written + 4));
}

TEST(CAMemoryDataProp, BytesAreNotReadAsANumber) {
  CAMemoryDataProp store;
  const unsigned char written[] = {1, 0, 0, 0};
  store.writeBytes(L"Blob", written, sizeof written);
  int read = 9;

  EXPECT_EQ(store.readInt(L"Blob", &read), ADataDef::AD_WRONGTYPE);

  EXPECT_EQ(read, 9);
}

TEST(CAMemoryDataProp, CloneSharesTheSameItems) {
  CAMemoryDataProp store;
  std::unique_ptr<CADataPropBase> clone(store.Clone());

  clone->writeInt(L"FromClone", 4);
  store.writeInt(L"FromOriginal", 5);

  EXPECT_TRUE(store.HasItem(L"FromClone"));
  int read = 0;
  ASSERT_EQ(clone->readInt(L"FromOriginal", &read), 0);
  EXPECT_EQ(read, 5);
}

TEST(CAMemoryDataProp, CopySharesTheSameItems) {
  CAMemoryDataProp store;
  CAMemoryDataProp copy(store);

  copy.writeInt(L"FromCopy", 4);

  EXPECT_TRUE(store.HasItem(L"FromCopy"));
  EXPECT_EQ(store.GetCount(), 1);
}

TEST(CAMemoryDataProp, RemoveAllEmptiesTheStore) {
  CAMemoryDataProp store;
  store.writeInt(L"A", 1);
  store.writeInt(L"B", 2);

  store.RemoveAll();

  EXPECT_EQ(store.GetCount(), 0);
  EXPECT_FALSE(store.HasItem(L"A"));
}

// ==== CADataProp<T> ==============================================================================

TEST(CADataProp, ForwardsEveryWriteWithItsArguments) {
  RecordingStore recorder;
  RecordingProp prop(&recorder);
  const unsigned char block[] = {1, 2};

  EXPECT_EQ(prop.writeChar(L"c", 'z'), 0);
  EXPECT_EQ(prop.writeString(L"s", L"文本"), 0);
  EXPECT_EQ(prop.writeInt32(L"i32", -70000L), 0);
  EXPECT_EQ(prop.writeInt16(L"i16", static_cast<short>(-300)), 0);
  EXPECT_EQ(prop.writeUInt32(L"u32", 4000000000UL), 0);
  EXPECT_EQ(prop.writeUInt16(L"u16", static_cast<unsigned short>(65000)), 0);
  EXPECT_EQ(prop.writeInt(L"i", 12), 0);
  EXPECT_EQ(prop.writeBool(L"b", true), 0);
  EXPECT_EQ(prop.writeDouble(L"d", -0.125), 0);
  EXPECT_EQ(prop.writeBytes(L"raw", block, sizeof block), 0);

  ASSERT_EQ(recorder.calls.size(), 10u);
  const auto& c = recorder.calls;
  EXPECT_EQ(c[0].op, "writeChar");
  EXPECT_EQ(c[0].name, L"c");
  EXPECT_EQ(c[0].integer, 'z');
  EXPECT_EQ(c[1].op, "writeString");
  EXPECT_EQ(c[1].name, L"s");
  EXPECT_EQ(c[1].text, L"文本");
  EXPECT_EQ(c[2].op, "writeInt32");
  EXPECT_EQ(c[2].name, L"i32");
  EXPECT_EQ(c[2].integer, -70000);
  EXPECT_EQ(c[3].op, "writeInt16");
  EXPECT_EQ(c[3].name, L"i16");
  EXPECT_EQ(c[3].integer, -300);
  EXPECT_EQ(c[4].op, "writeUInt32");
  EXPECT_EQ(c[4].name, L"u32");
  EXPECT_EQ(c[4].integer, 4000000000LL);
  EXPECT_EQ(c[5].op, "writeUInt16");
  EXPECT_EQ(c[5].name, L"u16");
  EXPECT_EQ(c[5].integer, 65000);
  EXPECT_EQ(c[6].op, "writeInt");
  EXPECT_EQ(c[6].name, L"i");
  EXPECT_EQ(c[6].integer, 12);
  EXPECT_EQ(c[7].op, "writeBool");
  EXPECT_EQ(c[7].name, L"b");
  EXPECT_EQ(c[7].integer, 1);
  EXPECT_EQ(c[8].op, "writeDouble");
  EXPECT_EQ(c[8].name, L"d");
  EXPECT_EQ(c[8].real, -0.125);
  EXPECT_EQ(c[9].op, "writeBytes");
  EXPECT_EQ(c[9].name, L"raw");
  EXPECT_EQ(c[9].buffer, static_cast<const void*>(block));
  EXPECT_EQ(c[9].size, 2u);
}

TEST(CADataProp, ForwardsEveryReadAndPassesBackWhatTheStoreGives) {
  RecordingStore recorder;
  RecordingProp prop(&recorder);
  char ch = 0;
  wchar_t* text = nullptr;
  long i32 = 0;
  short i16 = 0;
  unsigned long u32 = 0;
  unsigned short u16 = 0;
  int i = 0;
  bool b = false;
  double d = 0.0;
  unsigned char buffer[3] = {};

  EXPECT_EQ(prop.readChar(L"c", &ch), 0);
  EXPECT_EQ(prop.readString(L"s", &text), 0);
  std::unique_ptr<wchar_t[]> ownText(text);
  EXPECT_EQ(prop.readInt32(L"i32", &i32), 0);
  EXPECT_EQ(prop.readInt16(L"i16", &i16), 0);
  EXPECT_EQ(prop.readUInt32(L"u32", &u32), 0);
  EXPECT_EQ(prop.readUInt16(L"u16", &u16), 0);
  EXPECT_EQ(prop.readInt(L"i", &i), 0);
  EXPECT_EQ(prop.readBool(L"b", &b), 0);
  EXPECT_EQ(prop.readDouble(L"d", &d), 0);
  EXPECT_EQ(prop.readBytes(L"raw", buffer, sizeof buffer), 0);

  const std::vector<std::string> expectedOps = {"readChar",   "readString", "readInt32", "readInt16",
                                                "readUInt32", "readUInt16", "readInt",   "readBool",
                                                "readDouble", "readBytes"};
  const std::vector<std::wstring> expectedNames = {L"c", L"s", L"i32", L"i16", L"u32",
                                                   L"u16", L"i", L"b", L"d", L"raw"};
  ASSERT_EQ(recorder.calls.size(), expectedOps.size());
  for (std::size_t k = 0; k < expectedOps.size(); ++k) {
    EXPECT_EQ(recorder.calls[k].op, expectedOps[k]) << "call " << k;
    EXPECT_EQ(recorder.calls[k].name, expectedNames[k]) << "call " << k;
  }
  // The values the recorder hands out for each read.
  EXPECT_EQ(ch, 'q');
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(std::wstring(text), L"记录");
  EXPECT_EQ(i32, -32);
  EXPECT_EQ(i16, -16);
  EXPECT_EQ(u32, 32u);
  EXPECT_EQ(u16, 16u);
  EXPECT_EQ(i, 41);
  EXPECT_TRUE(b);
  EXPECT_EQ(d, 6.25);
  EXPECT_EQ(recorder.Last().buffer, static_cast<const void*>(buffer));
  EXPECT_EQ(recorder.Last().size, 3u);
}

TEST(CADataProp, ForwardsTheStoresResult) {
  RecordingStore recorder;
  recorder.result = 42;
  RecordingProp prop(&recorder);
  int i = 0;

  EXPECT_EQ(prop.readInt(L"i", &i), 42);
  EXPECT_EQ(prop.writeDouble(L"d", 1.0), 42);
  EXPECT_EQ(prop.writeBytes(L"raw", nullptr, 0), 42);
}

TEST(CADataProp, CloneWrapsTheSamePointer) {
  RecordingStore recorder;
  RecordingProp prop(&recorder);

  std::unique_ptr<CADataPropBase> clone(prop.Clone());
  ASSERT_NE(clone, nullptr);
  clone->writeInt(L"FromClone", 3);

  EXPECT_NE(dynamic_cast<RecordingProp*>(clone.get()), nullptr);
  ASSERT_EQ(recorder.calls.size(), 1u);
  EXPECT_EQ(recorder.Last().name, L"FromClone");
  EXPECT_EQ(recorder.Last().integer, 3);
}

TEST(CADataProp, DestroyingTheAdapterLeavesTheStoreAlive) {
  // The adapter does not own the store: a stack store outlives adapters and their clones (a
  // sanitised build aborts on a delete of it).
  RecordingStore recorder;
  {
    RecordingProp prop(&recorder);
    std::unique_ptr<CADataPropBase> clone(prop.Clone());
    prop.writeInt(L"a", 1);
  }

  recorder.writeInt(L"b", 2);

  EXPECT_EQ(recorder.calls.size(), 2u);
}
