// The material a layer is made of: its catalogue ID and name, in the ordered stream and the named
// exchange.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "construction/CQKStuTimeberingName.h"
#include "datakit/ADataDef.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"
#include "mfc/CString.h"

namespace {

CQKStuTimeberingName Material(int id, const wchar_t* name) {
  CQKStuTimeberingName m;
  m.TimberingID = id;
  m.TimberingName = name;
  return m;
}

std::vector<std::wstring> Names(const CAMemoryDataProp& store) {
  std::vector<std::wstring> names;
  for (int i = 0; i < store.GetCount(); ++i) names.emplace_back(store.GetName(i).GetString());
  return names;
}

}  // namespace

TEST(CQKStuTimeberingName, DefaultIdIsMinusOne) {
  CQKStuTimeberingName m;

  EXPECT_EQ(m.TimberingID, -1);
}

TEST(CQKStuTimeberingName, DefaultNameIsEmpty) {
  CQKStuTimeberingName m;

  EXPECT_TRUE(m.TimberingName.IsEmpty());
}

TEST(CQKStuTimeberingName, StreamHoldsTheIdThenTheName) {
  CQKStuTimeberingName out = Material(42, L"加气混凝土砌块");
  CADataStream stream;

  out.DataOutPut(stream);

  int id = 0;
  CString name;
  ASSERT_EQ(stream.ReadItem(&id), 0);
  ASSERT_EQ(stream.ReadItem(&name), 0);
  EXPECT_EQ(id, 42);
  EXPECT_EQ(name, L"加气混凝土砌块");
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKStuTimeberingName, StreamRoundTripKeepsIdAndChineseName) {
  CQKStuTimeberingName out = Material(7, L"挤塑聚苯板");
  CADataStream stream;
  out.DataOutPut(stream);
  CQKStuTimeberingName in;

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, ADataDef::AD_OK);
  EXPECT_EQ(in.TimberingID, 7);
  EXPECT_EQ(in.TimberingName, L"挤塑聚苯板");
}

TEST(CQKStuTimeberingName, ExchangeWritesTimberingIdThenTimberingName) {
  CQKStuTimeberingName out = Material(42, L"加气混凝土砌块");
  CAMemoryDataProp store;

  out.DataOutPro(CADataExchange(store));

  EXPECT_EQ(Names(store), (std::vector<std::wstring>{L"TimberingID", L"TimberingName"}));
}

TEST(CQKStuTimeberingName, ExchangeRoundTripKeepsIdAndChineseName) {
  CQKStuTimeberingName out = Material(9, L"水泥砂浆");
  CAMemoryDataProp store;
  out.DataOutPro(CADataExchange(store));
  CQKStuTimeberingName in;

  in.DataInPro(CADataExchange(store));

  EXPECT_EQ(in.TimberingID, 9);
  EXPECT_EQ(in.TimberingName, L"水泥砂浆");
}
