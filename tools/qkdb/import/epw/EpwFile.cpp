#include "import/epw/EpwFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <sstream>
#include <vector>

#include "text/BoundedRead.h"
#include "text/CsvTable.h"

namespace qkdb {

namespace {

// The header lines of every EPW file, in their fixed order.
const std::array<const char*, 8> kHeader = {"LOCATION",   "DESIGN CONDITIONS", "TYPICAL/EXTREME PERIODS",
                                            "GROUND TEMPERATURES", "HOLIDAYS/DAYLIGHT SAVINGS",
                                            "COMMENTS 1", "COMMENTS 2", "DATA PERIODS"};
// Fields of one data record: date, time, source flags and 29 observations.
constexpr std::size_t kRecordFields = 35;
// First day of each month in a year without 29 February, counted from 0.
const std::array<int, 12> kMonthStart = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};

std::string Trim(const std::string& text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> fields;
  std::size_t start = 0;
  for (;;) {
    const auto comma = line.find(',', start);
    fields.push_back(Trim(line.substr(start, comma - start)));
    if (comma == std::string::npos) return fields;
    start = comma + 1;
  }
}

bool SameWord(const std::string& a, const char* b) {
  const std::string w(b);
  return a.size() == w.size() && std::equal(a.begin(), a.end(), w.begin(), [](char x, char y) {
           return std::toupper(static_cast<unsigned char>(x)) == std::toupper(static_cast<unsigned char>(y));
         });
}

// One header line split into fields, with the place it came from for messages.
class HeaderLine {
 public:
  HeaderLine(std::string file, int number, const std::string& text)
      : m_where(std::move(file) + ":" + std::to_string(number)), m_fields(Fields(text)) {}

  std::size_t Size() const { return m_fields.size(); }
  const std::string& Text(std::size_t i) const { return m_fields.at(i); }
  DataError Error(const std::string& what) const { return DataError(m_where + ": " + what); }

  // Field i as a number within [low, high]; name says what it is in the message.
  double Number(std::size_t i, const char* name, double low, double high) const {
    if (i >= m_fields.size()) throw Error(std::string("the line ends before the ") + name);
    const std::string& text = m_fields[i];
    double value = 0.0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || ec != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
      throw Error(std::string("the ") + name + " \"" + text + "\" is not a number");
    if (value < low || value > high) {
      std::ostringstream range;
      range << "the " << name << " " << text << " is outside " << low << " to " << high;
      throw Error(range.str());
    }
    return value;
  }
  int Whole(std::size_t i, const char* name, int low, int high) const {
    const double value = Number(i, name, low, high);
    if (value != std::floor(value)) throw Error(std::string("the ") + name + " \"" + m_fields[i] + "\" is not a whole number");
    return static_cast<int>(value);
  }
  // Where the word stands among the fields, or npos.
  std::size_t Find(const char* word) const {
    for (std::size_t i = 0; i < m_fields.size(); ++i)
      if (SameWord(m_fields[i], word)) return i;
    return std::string::npos;
  }

 private:
  std::string m_where;
  std::vector<std::string> m_fields;
};

EpwLocation ReadLocation(const HeaderLine& line) {
  if (line.Size() < 10) throw line.Error("LOCATION needs 10 fields, it has " + std::to_string(line.Size()));
  EpwLocation l;
  l.city = line.Text(1);
  l.region = line.Text(2);
  l.country = line.Text(3);
  l.source = line.Text(4);
  l.wmo = line.Text(5);
  l.latitude = line.Number(6, "latitude", -90.0, 90.0);
  l.longitude = line.Number(7, "longitude", -180.0, 180.0);
  l.timeZone = line.Number(8, "time zone", -12.0, 14.0);
  l.elevation = line.Number(9, "elevation", -1000.0, 9999.9);
  if (l.city.empty()) throw line.Error("LOCATION names no city");
  return l;
}

void ReadDesignConditions(const HeaderLine& line, EpwFile& epw) {
  if (line.Whole(1, "number of design conditions", 0, 1000) == 0) return;
  const std::size_t h = line.Find("Heating");
  const std::size_t c = line.Find("Cooling");
  if (h == std::string::npos && c == std::string::npos)
    throw line.Error("the design conditions give neither Heating nor Cooling values");
  if (h != std::string::npos) {
    EpwHeating heat;
    heat.coldestMonth = line.Whole(h + 1, "coldest month", 1, 12);
    heat.dryBulb = line.Number(h + 2, "heating dry-bulb 99.6 %", -90.0, 60.0);
    heat.windSpeed = line.Number(h + 14, "wind speed coincident with heating 99.6 %", 0.0, 60.0);
    heat.windDirection = line.Number(h + 15, "wind direction coincident with heating 99.6 %", 0.0, 360.0);
    epw.heating = heat;
  }
  if (c != std::string::npos) {
    EpwCooling cool;
    cool.hottestMonth = line.Whole(c + 1, "hottest month", 1, 12);
    cool.dailyRange = line.Number(c + 2, "hottest month's daily range", 0.0, 60.0);
    cool.dryBulb = line.Number(c + 3, "cooling dry-bulb 0.4 %", -40.0, 70.0);
    cool.wetBulb = line.Number(c + 4, "wet-bulb coincident with cooling 0.4 %", -40.0, 70.0);
    cool.windSpeed = line.Number(c + 15, "wind speed coincident with cooling 0.4 %", 0.0, 60.0);
    cool.windDirection = line.Number(c + 16, "wind direction coincident with cooling 0.4 %", 0.0, 360.0);
    epw.cooling = cool;
  }
}

// A header date "m/d" (spaces allowed, "m/d/yyyy" too) as the day of a year without 29 February.
int DayOfYear(const HeaderLine& line, std::size_t i) {
  const std::string& text = line.Text(i);
  int month = 0;
  int day = 0;
  char slash = 0;
  std::istringstream in(text);
  if (!(in >> month >> slash >> day) || slash != '/' || month < 1 || month > 12 || day < 1 || day > 31)
    throw line.Error("the data period date \"" + text + "\" is not a month/day");
  return kMonthStart[static_cast<std::size_t>(month - 1)] + std::min(day, month == 2 ? 28 : 31) - 1;
}

// The records the data periods hold, for a year without and with 29 February.
std::pair<long, long> ExpectedRecords(const HeaderLine& line) {
  const int periods = line.Whole(1, "number of data periods", 1, 100);
  const int perHour = line.Whole(2, "number of records per hour", 1, 60);
  long days = 0;
  long leapDays = 0;
  for (int p = 0; p < periods; ++p) {
    const std::size_t first = 3 + 4 * static_cast<std::size_t>(p);
    if (line.Size() < first + 4) throw line.Error("the line ends before data period " + std::to_string(p + 1));
    const int start = DayOfYear(line, first + 2);
    const int end = DayOfYear(line, first + 3);
    const int span = end >= start ? end - start + 1 : 365 - start + end + 1;
    days += span;
    // A leap-year file holds 29 February too when the period runs over the end of February.
    const int lastOfFebruary = 58;
    if ((end >= start && start <= lastOfFebruary && end > lastOfFebruary) || end < start) ++leapDays;
  }
  return {days * 24 * perHour, (days + leapDays) * 24 * perHour};
}

}  // namespace

EpwFile EpwFile::Read(const std::filesystem::path& path) {
  return Parse(path.filename().string(), ReadWhole(path, kEpwFileLimit));
}

EpwFile EpwFile::Parse(const std::string& name, const std::string& contents) {
  std::istringstream in(contents);
  EpwFile epw;
  std::string text;
  int number = 0;
  std::pair<long, long> expected{0, 0};
  bool ended = false;  // an empty line was seen: only more empty lines may follow
  while (std::getline(in, text)) {
    ++number;
    if (!text.empty() && text.back() == '\r') text.pop_back();
    if (number == 1 && text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);  // a byte-order mark
    if (number <= static_cast<int>(kHeader.size())) {
      const HeaderLine line(name, number, text);
      const char* keyword = kHeader[static_cast<std::size_t>(number - 1)];
      if (!SameWord(line.Text(0), keyword))
        throw line.Error(std::string("expected the ") + keyword + " line, found \"" + line.Text(0).substr(0, 40) + "\"");
      if (number == 1) epw.location = ReadLocation(line);
      if (number == 2) ReadDesignConditions(line, epw);
      if (number == 8) expected = ExpectedRecords(line);
      continue;
    }
    if (Trim(text).empty()) {
      ended = true;
      continue;
    }
    if (ended) throw DataError(name + ":" + std::to_string(number) + ": a data record after an empty line");
    if (Fields(text).size() < kRecordFields)
      throw DataError(name + ":" + std::to_string(number) + ": a data record needs " + std::to_string(kRecordFields) +
                      " fields, it has " + std::to_string(Fields(text).size()));
    ++epw.records;
  }
  if (number < static_cast<int>(kHeader.size()))
    throw DataError(name + ":" + std::to_string(number + 1) + ": the file ends before the " +
                    kHeader[static_cast<std::size_t>(number)] + " line");
  if (epw.records != expected.first && epw.records != expected.second)
    throw DataError(name + ":" + std::to_string(number) + ": the file holds " + std::to_string(epw.records) +
                    " data records, its data periods hold " + std::to_string(expected.first) +
                    (expected.second != expected.first ? " (or " + std::to_string(expected.second) + " in a leap year)" : ""));
  return epw;
}

}  // namespace qkdb
