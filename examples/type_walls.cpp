// examples/type_walls.cpp
// The walls of one envelope type of the reference database, each computed with the standard surface
// coefficients, with U in summer and in winter. Usage: type_walls REFERENCE_DB [TYPE] (default ASHRAE外墙).

#include <cstdio>
#include <string>

#include "binding/QKReferenceDatabase.h"
#include "construction/CQKWallData.h"
#include "envelope/CQKBSDataAdmin.h"
#include "envelope/CQKBSType.h"
#include "envelope/CQKCrXs.h"
#include "foundation/CLxArray.h"
#include "foundation/CQKDBGlobalSetting.h"
#include "foundation/QKLoad.h"
#include "mfc/CString.h"

namespace {

int Fail(const std::string& message) {
  std::fprintf(stderr, "type_walls: %s\n", message.c_str());
  return 1;
}

int Report(const CString& database, const CString& name) {
  CString error;
  if (!QKReferenceDatabase::Bind(database, &error)) return Fail(error.ToUtf8());

  // IsExist loads the type's row, its ID included: the walls are found by that ID.
  CQKBSType type;
  type.Name = name;
  if (type.IsExist(nullptr) != QKLoad::DBS_EXIST) return Fail("no envelope type named " + name.ToUtf8());

  // One wall per envelope code, computed (true) with CQKCrXs's 18.6 / 23.0 outside and 8.7 inside.
  CQKBSDataAdmin admin;
  CLxArray<CQKWallData> walls;
  admin.GetBSCodeCWallDataAry(type, walls, true, CQKCrXs());
  std::printf("%s: %d walls, U in W/(m²·K) (summer, winter)\n", type.Name.ToUtf8().c_str(), walls.GetSize());
  for (int i = 0; i < walls.GetSize(); ++i)
    std::printf("%s  %.3f  %.3f\n", walls[i].Name.ToUtf8().c_str(), walls[i].CrXs, walls[i].DjCrXs);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return Fail("usage: type_walls REFERENCE_DB [TYPE]");
  if (CQKDBGlobalSetting::GetGlobalSetting() == nullptr) return Fail("cannot start the library");
  const int status = Report(CString::FromUtf8(argv[1]), CString::FromUtf8(argc > 2 ? argv[2] : "ASHRAE外墙"));
  CQKDBGlobalSetting::RemoveGlobalSetting();
  return status;
}
