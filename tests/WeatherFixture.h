#pragma once
// The geography fixture with the weather record pointed at the "Weather" table of the same reference
// database, small seeding helpers in plain SQL, and the message boxes shown meanwhile.

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "GeographyFixture.h"
#include "MessageCapture.h"
#include "weather/CQKWeather.h"

class WeatherFixture : public GeographyFixture {
 protected:
  void SetUp() override {
    GeographyFixture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    CQKWeather::S_Init(path, L"Weather");
  }
  void TearDown() override {
    ForgetClassTable<CQKWeather>();
    GeographyFixture::TearDown();
  }

  // One weather row: the city, its position in radians, its EPW file name ("" stores null) and the
  // summer dry-bulb temperature that tells the rows apart.
  void AddWeather(long cityId, double jd, double wd, const std::string& epw, double xjKtSwGqWd) {
    const std::string name = epw.empty() ? "NULL" : "'" + epw + "'";
    Seed("INSERT INTO Weather (CId, JD, WD, EpwName, XjKtSwGqWd) VALUES (" + std::to_string(cityId) + ", " +
         Exact(jd) + ", " + Exact(wd) + ", " + name + ", " + Exact(xjKtSwGqWd) + ");");
  }

  // A double as SQL text that reads back as the same double.
  static std::string Exact(double v) {
    char text[32];
    std::snprintf(text, sizeof text, "%.17g", v);
    return text;
  }

  MessageCapture capture;
  const std::vector<std::pair<CString, unsigned int>>& messages = capture.shown;
};
