// The wall's results: the ordered stream (three results, then the harmonic arrays and the response
// arrays, each set interleaved element by element) and the named exchange of the three results only.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "construction/tagQKWALL.h"
#include "datakit/ADataDef.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"

namespace {

// Every stored number differs: harmonic array a (1..4) at i holds 100·a + i, response array a at j
// holds 1000·a + j.
tagQKWALL NumberedWall() {
  tagQKWALL w;
  w.CrXs = 1.5;
  w.CrSj = 12.25;
  w.CrYc = 8.75;
  for (int i = 0; i < 12; ++i) {
    w.Harmonic1[i] = 100.0 + i;
    w.Harmonic2[i] = 200.0 + i;
    w.Harmonic3[i] = 300.0 + i;
    w.Harmonic4[i] = 400.0 + i;
  }
  for (int j = 0; j < 24; ++j) {
    w.Response1[j] = 1000.0 + j;
    w.Response2[j] = 2000.0 + j;
    w.Response3[j] = 3000.0 + j;
    w.Response4[j] = 4000.0 + j;
  }
  return w;
}

std::vector<double> ReadDoubles(CADataStream& stream, int count) {
  std::vector<double> values;
  for (int i = 0; i < count; ++i) {
    double v = 0.0;
    if (stream.ReadItem(&v) != 0) break;
    values.push_back(v);
  }
  return values;
}

std::vector<std::wstring> Names(const CAMemoryDataProp& store) {
  std::vector<std::wstring> names;
  for (int i = 0; i < store.GetCount(); ++i) names.emplace_back(store.GetName(i).GetString());
  return names;
}

}  // namespace

TEST(tagQKWALL, DefaultResultsAreZero) {
  tagQKWALL w;

  EXPECT_EQ(w.CrXs, 0.0);
  EXPECT_EQ(w.CrSj, 0.0);
  EXPECT_EQ(w.CrYc, 0.0);
  EXPECT_EQ(w.Harmonic1[0], 0.0);
  EXPECT_EQ(w.Harmonic4[11], 0.0);
  EXPECT_EQ(w.Response1[0], 0.0);
  EXPECT_EQ(w.Response4[23], 0.0);
}

TEST(tagQKWALL, StreamHolds147Doubles) {
  tagQKWALL w = NumberedWall();
  CADataStream stream;

  w.DataOutPut(stream);

  // 3 results + 4·12 harmonic terms + 4·24 response terms, 8 bytes each
  EXPECT_EQ(stream.GetSize(), (3u + 4u * 12u + 4u * 24u) * 8u);
}

TEST(tagQKWALL, StreamBeginsWithCrXsCrSjCrYc) {
  tagQKWALL w = NumberedWall();
  CADataStream stream;

  w.DataOutPut(stream);

  EXPECT_EQ(ReadDoubles(stream, 3), (std::vector<double>{1.5, 12.25, 8.75}));
}

TEST(tagQKWALL, StreamInterleavesTheHarmonicArraysIndexByIndex) {
  tagQKWALL w = NumberedWall();
  CADataStream stream;
  w.DataOutPut(stream);
  ReadDoubles(stream, 3);

  const std::vector<double> harmonics = ReadDoubles(stream, 48);

  std::vector<double> expected;
  for (int i = 0; i < 12; ++i) {
    expected.push_back(100.0 + i);
    expected.push_back(200.0 + i);
    expected.push_back(300.0 + i);
    expected.push_back(400.0 + i);
  }
  EXPECT_EQ(harmonics, expected);
}

TEST(tagQKWALL, StreamInterleavesTheResponseArraysHourByHour) {
  tagQKWALL w = NumberedWall();
  CADataStream stream;
  w.DataOutPut(stream);
  ReadDoubles(stream, 3 + 48);

  const std::vector<double> responses = ReadDoubles(stream, 96);

  std::vector<double> expected;
  for (int j = 0; j < 24; ++j) {
    expected.push_back(1000.0 + j);
    expected.push_back(2000.0 + j);
    expected.push_back(3000.0 + j);
    expected.push_back(4000.0 + j);
  }
  EXPECT_EQ(responses, expected);
}

TEST(tagQKWALL, StreamRoundTripKeepsEveryResult) {
  tagQKWALL out = NumberedWall();
  CADataStream stream;
  out.DataOutPut(stream);
  tagQKWALL in;

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, ADataDef::AD_OK);
  EXPECT_EQ(in.CrXs, 1.5);
  EXPECT_EQ(in.CrSj, 12.25);
  EXPECT_EQ(in.CrYc, 8.75);
  for (int i = 0; i < 12; ++i) {
    EXPECT_EQ(in.Harmonic1[i], 100.0 + i);
    EXPECT_EQ(in.Harmonic2[i], 200.0 + i);
    EXPECT_EQ(in.Harmonic3[i], 300.0 + i);
    EXPECT_EQ(in.Harmonic4[i], 400.0 + i);
  }
  for (int j = 0; j < 24; ++j) {
    EXPECT_EQ(in.Response1[j], 1000.0 + j);
    EXPECT_EQ(in.Response2[j], 2000.0 + j);
    EXPECT_EQ(in.Response3[j], 3000.0 + j);
    EXPECT_EQ(in.Response4[j], 4000.0 + j);
  }
}

TEST(tagQKWALL, ExchangeWritesOnlyCrXsCrSjCrYc) {
  tagQKWALL w = NumberedWall();
  CAMemoryDataProp store;

  w.DataOutPro(CADataExchange(store));

  EXPECT_EQ(Names(store), (std::vector<std::wstring>{L"CrXs", L"CrSj", L"CrYc"}));
}

TEST(tagQKWALL, ExchangeRoundTripKeepsTheThreeResults) {
  tagQKWALL out = NumberedWall();
  CAMemoryDataProp store;
  out.DataOutPro(CADataExchange(store));
  tagQKWALL in;

  in.DataInPro(CADataExchange(store));

  EXPECT_EQ(in.CrXs, 1.5);
  EXPECT_EQ(in.CrSj, 12.25);
  EXPECT_EQ(in.CrYc, 8.75);
}

TEST(tagQKWALL, ExchangeReadLeavesTheArrays) {
  CAMemoryDataProp store;
  tagQKWALL().DataOutPro(CADataExchange(store));
  tagQKWALL in = NumberedWall();

  in.DataInPro(CADataExchange(store));

  EXPECT_EQ(in.Harmonic1[0], 100.0);
  EXPECT_EQ(in.Response4[23], 4000.0 + 23);
}
