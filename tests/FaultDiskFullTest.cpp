// The disk fills during a write: the library runs in a child process whose files may not grow past
// the database's present size, so a write that needs a new page fails with EFBIG as it would with
// ENOSPC. The write gives its error value; SQLite rolls the statement back, the file stays sound and
// every committed row stays.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "FaultDatabase.h"
#include "FaultOperations.h"
#include "geography/CQKCity.h"
#include "geography/CQKCountry.h"

namespace {

// A name too long for the free space of any page (UTF-8 bytes well past a 4 KiB page), so that
// storing it grows the file.
CString LongName() { return CString(std::wstring(50000, L'长').c_str()); }

class FaultDiskFull : public FaultFixture {
 protected:
  std::string UnderTheLimit(const std::function<std::string()>& body) {
    return TextUnderFileSizeLimit(static_cast<off_t>(std::filesystem::file_size(path.ToUtf8())), body);
  }
};

TEST_F(FaultDiskFull, AGrowingInsertGivesError) {
  EXPECT_EQ(UnderTheLimit([] {
              CQKCountry country;
              country.Name = LongName();
              return std::to_string(country.AddIfNotExist(nullptr, 0));
            }),
            std::to_string(QKLoad::DBS_ERROR));
}

TEST_F(FaultDiskFull, AGrowingUpdateGivesZero) {
  EXPECT_EQ(UnderTheLimit([] {
              CQKCity city;
              city.PId = 1;
              city.Name = LongName();
              return std::to_string(city.UpdateData(1));
            }),
            "0");
}

TEST_F(FaultDiskFull, AWriteThatFitsStillSucceeds) {
  EXPECT_EQ(UnderTheLimit([] {
              CQKCity city;
              city.PId = 1;
              city.Name = L"北京市";
              return std::to_string(city.UpdateData(1));
            }),
            "1");
}

TEST_F(FaultDiskFull, AWriteAfterTheFailedOneSucceeds) {
  EXPECT_EQ(UnderTheLimit([] {
              CQKCountry tooLong;
              tooLong.Name = LongName();
              tooLong.AddIfNotExist(nullptr, 0);
              CQKCountry fits;
              fits.Name = L"法国";
              return std::to_string(fits.AddIfNotExist(nullptr, 0));
            }),
            std::to_string(QKLoad::DBS_ADDED));
  EXPECT_EQ(QueryOne(path, "SELECT group_concat(Name, ',') FROM Country"), "中国,法国");
}

TEST_F(FaultDiskFull, LookupsTreesAndDeletionsNeedNoRoom) {
  EXPECT_EQ(UnderTheLimit([] {
              // In this order (the operands of + would run in any): the deletions change what the
              // others find.
              std::string out = RunLookups();
              out += "\n" + RunTrees();
              return out + "\n" + RunDeletions();
            }),
            std::string(kLookupsFound) + "\n" + kTreesWhole + "\n" + kDeletionsDone);
}

TEST_F(FaultDiskFull, CommittedRowsStayWhole) {
  const std::string before = StoredRows(path);
  UnderTheLimit([] {
    CQKCountry country;
    country.Name = LongName();
    country.AddIfNotExist(nullptr, 0);
    CQKCity city;
    city.PId = 1;
    city.Name = LongName();
    city.UpdateData(1);
    return std::string();
  });
  EXPECT_EQ(StoredRows(path), before);
  EXPECT_EQ(IntegrityCheck(path), "ok");
}

}  // namespace
