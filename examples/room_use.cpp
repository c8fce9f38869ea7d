// examples/room_use.cpp
// A room use of the reference database, found by name in the room tree (room types > room uses), and
// its load parameters. Usage: room_use REFERENCE_DB [ROOM_USE] (default 门诊楼, under 医院建筑).

#include <cstdio>
#include <string>

#include "binding/QKReferenceDatabase.h"
#include "foundation/CQKDBGlobalSetting.h"
#include "mfc/CString.h"
#include "rooms/CQKRULoadParam.h"
#include "rooms/CQKRoomUseDataAdmin.h"

namespace {

using Node = CQKRoomUseDataAdmin::tagRoomUseNode;

int Fail(const std::string& message) {
  std::fprintf(stderr, "room_use: %s\n", message.c_str());
  return 1;
}

int Report(const CString& database, const CString& name) {
  CString error;
  if (!QKReferenceDatabase::Bind(database, &error)) return Fail(error.ToUtf8());

  // The admin owns the tree; the node pointers stay valid while it lives and does not rebuild.
  CQKRoomUseDataAdmin admin;
  const Node* root = admin.GetRoomUseNodes(1);
  const Node* use = nullptr;
  for (int t = 0; use == nullptr && t < root->arrChild.GetSize(); ++t)
    for (int u = 0; use == nullptr && u < root->arrChild[t]->arrChild.GetSize(); ++u)
      if (root->arrChild[t]->arrChild[u]->strName == name) use = root->arrChild[t]->arrChild[u];
  if (use == nullptr) return Fail("no room use named " + name.ToUtf8());

  // The parameters are a row of their own, filed by the room use's ID.
  CQKRULoadParam load;
  if (!load.ReadDataByRUId(static_cast<int>(use->nId))) return Fail("no load parameters for " + name.ToUtf8());
  std::printf("%s (%s)\n", use->strName.ToUtf8().c_str(), use->pParent->strName.ToUtf8().c_str());
  std::printf("floor area per occupant: %.1f m²\n", load.RenYuanMD);
  std::printf("lighting power density: %.1f W/m²\n", load.ZhaoMingBZ);
  std::printf("equipment power density: %.1f W/m²\n", load.SheBeiBZ);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return Fail("usage: room_use REFERENCE_DB [ROOM_USE]");
  if (CQKDBGlobalSetting::GetGlobalSetting() == nullptr) return Fail("cannot start the library");
  const int status = Report(CString::FromUtf8(argv[1]), CString::FromUtf8(argc > 2 ? argv[2] : "门诊楼"));
  CQKDBGlobalSetting::RemoveGlobalSetting();
  return status;
}
