// Writes the seed corpus of every fuzz target into the folder given (fuzz/corpus), one small valid
// input per file, each made by the project's own code or checked by it:
//   DataInPutFuzzer      the index byte, then DataOutPut of a default value of that class, and of a
//                        calculated three-layer wall
//   AccessDialectFuzzer  statements in the shapes the library's classes format
//   RecordLookupFuzzer   names, plain and with the quotes a user might type
//   WallInputFuzzer      wall JSON, accepted by ParseWall
//   EpwFileFuzzer        one-day EPW files, accepted by EpwFile::Parse
//   AccessValuesFuzzer   the selector byte, then a Currency, Single, Date or Jet 4 text field
// Run it after changing a format: build/fuzz/fuzz/MakeSeeds fuzz/corpus

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "text/CsvTable.h"
#include "import/epw/EpwFile.h"
#include "StreamValues.h"
#include "answers/wall/WallInput.h"

namespace fs = std::filesystem;

namespace {

fs::path g_root;

void Write(const char* target, const std::string& name, const std::string& bytes) {
  const fs::path folder = g_root / target;
  fs::create_directories(folder);
  std::ofstream(folder / name, std::ios::binary) << bytes;
}

std::string Bytes(const CADataStream& stream) {
  const auto& bytes = stream.GetBytes();
  return std::string(bytes.begin(), bytes.end());
}

template <class T>
std::string Raw(T value) {
  std::string bytes(sizeof value, '\0');
  std::memcpy(bytes.data(), &value, sizeof value);
  return bytes;
}

// The wall of docs/examples/plastered-brick-wall.json: 20 mm cement mortar, 240 mm brick, 20 mm lime
// plaster, outside to inside.
std::string BrickWall() {
  nlohmann::ordered_json wall = {{"inside", 8.7}, {"outside", 18.6}, {"outside_winter", 23.0}};
  wall["layers"] = {
      {{"name", "水泥砂浆"}, {"thickness", 0.02}, {"conductivity", 0.93}, {"density", 1800}, {"specific_heat", 1.05}},
      {{"name", "重砂浆砌筑黏土砖砌体"}, {"thickness", 0.24}, {"conductivity", 0.81}, {"density", 1800},
       {"specific_heat", 1.05}, {"conductivity_correction", 1.0}, {"density_correction", 1.0}},
      {{"name", "石灰砂浆"}, {"thickness", 0.02}, {"conductivity", 0.81}, {"density", 1600}, {"specific_heat", 1.05}}};
  return wall.dump();
}

void StreamSeeds() {
  for (std::size_t i = 0; i < kStreamValueCount; ++i) {
    CADataStream out;
    kStreamValues[i].writeDefault(out);
    Write("DataInPutFuzzer", kStreamValues[i].name, std::string(1, static_cast<char>(i)) + Bytes(out));
  }
  CQKWallData wall = qkdb::ParseWall(BrickWall());
  wall.Cal(1);
  wall.Cal(0);
  CADataStream out;
  wall.DataOutPut(out);
  for (std::size_t i = 0; i < kStreamValueCount; ++i) {
    if (std::string(kStreamValues[i].name) == "CQKWallData")
      Write("DataInPutFuzzer", "CQKWallData-brick", std::string(1, static_cast<char>(i)) + Bytes(out));
  }
}

void DialectSeeds() {
  const char* statements[] = {
      "select * from City where PId=3 and Name=\"郑州\"",
      "select ID from Country where Name=\"O'Brien\"",
      "select top 1 * from Weather where CId=7 order by ID",
      "SELECT DISTINCT TOP 3 Name FROM [Room Use]",
      "select Id from City order by Name='郑州', Id desc",
      "Select Id,Name From Country Where id in( Select Distinct cid From Province Where id in(1,2))",
      "select * from Weather where JD between 1.5 and 2.5 and WD between 0.5 and 0.7",
      "delete from BSCode where BSTId=4;",
  };
  int n = 0;
  for (const char* s : statements) Write("AccessDialectFuzzer", "statement-" + std::to_string(++n), s);
}

void NameSeeds() {
  const char* names[] = {"郑州", "O'Brien", "引号\"名", "x'); delete from FuzzSentinel; --", ""};
  int n = 0;
  for (const char* s : names) Write("RecordLookupFuzzer", "name-" + std::to_string(++n), s);
}

void WallSeeds() {
  const std::string brick = BrickWall();
  qkdb::ParseWall(brick);
  Write("WallInputFuzzer", "brick", brick);
  const std::string film = R"({"layers":[{"name":"air gap","thickness":0,"conductivity":6.25,"density":0,"specific_heat":0}]})";
  qkdb::ParseWall(film);
  Write("WallInputFuzzer", "air-gap", film);
}

// A one-day EPW file: the header, whose data period is 1 January alone, and 24 hourly records.
std::string Epw(const std::string& design) {
  std::string text =
      "LOCATION,Zhengzhou,Henan,CHN,CSWD,570830,34.72,113.65,8.0,110.4\n" + design + "\n" +
      "TYPICAL/EXTREME PERIODS,0\nGROUND TEMPERATURES,0\nHOLIDAYS/DAYLIGHT SAVINGS,No,0,0,0\n"
      "COMMENTS 1,a seed of the EPW fuzzer\nCOMMENTS 2,\nDATA PERIODS,1,1,Data,Sunday, 1/ 1, 1/ 1\n";
  for (int hour = 1; hour <= 24; ++hour)
    text += "1999,1,1," + std::to_string(hour) +
            ",0,?9?9?9?9E0?9?9?9?9?9?9?9?9?9?9?9?9?9*9*9?9?9?9,0.0,-4.4,72,101300,0,1415,231,0,0,0,0,0,0,0,0,0.0,0,0,"
            "24.1,77777,9,999999999,0,0.0000,0,88,0.000,0.0,0.0\n";
  qkdb::EpwFile::Parse("seed.epw", text);
  return text;
}

void EpwSeeds() {
  Write("EpwFileFuzzer", "design-conditions",
        Epw("DESIGN CONDITIONS,1,Climate Design Data 2009 ASHRAE Handbook,,Heating,1,-6.7,-5.3,-23.9,0.4,2.8,"
            "-20.1,0.6,3,11.1,3.9,9.3,2.8,1.2,180,Cooling,7,7.8,35.1,23.8,33.8,24,32.5,23.9,27.8,31.6,27,30.7,"
            "26.3,29.8,3.2,180,26.8,22.8,30.5,26,21.7,29.5,25.3,20.7,28.7,90.2,31.9,86.5,31,83,29.7,662"));
  Write("EpwFileFuzzer", "no-design-conditions", Epw("DESIGN CONDITIONS,0"));
}

void AccessSeeds() {
  Write("AccessValuesFuzzer", "currency", std::string(1, '\0') + Raw<std::int64_t>(174500));  // 17.45
  Write("AccessValuesFuzzer", "single", "\x01" + Raw<float>(0.05f));
  Write("AccessValuesFuzzer", "date", "\x02" + Raw<double>(45000.25));  // 2023-03-15 06:00
  Write("AccessValuesFuzzer", "text", "\x03" + std::string("\xd1\x90\xde\x5d\x40\xd8\x00\xdc", 8));  // 郑州𠀀
  Write("AccessValuesFuzzer", "text-compressed", "\x03\xff\xfe" + std::string("Zhengzhou\x00\xd1\x90", 12));  // Zhengzhou郑
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: MakeSeeds <corpus folder>\n");
    return 2;
  }
  g_root = argv[1];
  StreamSeeds();
  DialectSeeds();
  NameSeeds();
  WallSeeds();
  EpwSeeds();
  AccessSeeds();
  return 0;
}
