#include "EpwText.h"

const char* const kRestOfHeader[6] = {
    "TYPICAL/EXTREME PERIODS,1,Summer - Week Nearest Max Temperature For Period,Extreme,7/10,7/16",
    "GROUND TEMPERATURES,0",
    "HOLIDAYS/DAYLIGHT SAVINGS,No,0,0,0",
    "COMMENTS 1,written by the import test",
    "COMMENTS 2,",
    "DATA PERIODS,1,1,Data,Sunday, 1/ 1,12/31"};

const std::string kZhengzhouLocation = "LOCATION,Zhengzhou,Henan,CHN,CSWD,570830,34.72,113.65,8.0,110.4";

const std::string kDesignConditions =
    "DESIGN CONDITIONS,1,Climate Design Data 2009 ASHRAE Handbook,,Heating,1,-6.7,-5.3,-23.9,0.4,2.8,-20.1,0.6,3,"
    "11.1,3.9,9.3,2.8,1.2,180,Cooling,7,7.8,35.1,23.8,33.8,24,32.5,23.9,27.8,31.6,27,30.7,26.3,29.8,3.2,180,26.8,"
    "22.8,30.5,26,21.7,29.5,25.3,20.7,28.7,90.2,31.9,86.5,31,83,29.7,662,Extremes,8.4,6.9,5.7,30.7,-9.5,38,2,1.3,"
    "-11,38.9,-12.1,39.7,-13.3,40.4,-14.8,41.4";

std::string EpwText(const std::string& location, const std::string& design, int records, const std::string& eol) {
  std::string text = location + eol + design + eol;
  for (const char* line : kRestOfHeader) text += line + eol;
  for (int i = 0; i < records; ++i)
    text += "1999,1,1," + std::to_string(i % 24 + 1) +
            ",0,?9?9?9?9E0?9?9?9?9?9?9?9?9?9?9?9?9?9*9*9?9?9?9,0.0,-4.4,72,101300,0,1415,231,0,0,0,0,0,0,0,0,0.0,0,0,"
            "24.1,77777,9,999999999,0,0.0000,0,88,0.000,0.0,0.0" + eol;
  return text;
}
