#include "envelope/CQKBSDataAdmin.h"

#include "construction/CQKTimberingData.h"
#include "foundation/QKRecordVerbs.h"
#include "tablekit/CADORecordset.h"
#include "tablekit/RvAfxMessageBox.h"
#include "tablekit/reads/ReadScope.h"

CString CQKBSDataAdmin::s_m_strBMPDir;

namespace {

constexpr unsigned int kErrorIcon = 16;    // MB_ICONERROR
constexpr unsigned int kWarningIcon = 48;  // MB_ICONWARNING

constexpr const wchar_t* kDatabaseFailed = L"操作数据库时出错！";

// Runs "delete from <table> where <column>=<id>" through runner on db. On failure the catalogue's
// deletion message naming table goes into message and is shown with the error icon.
bool DeleteWhere(tagDBSTRUCT& runner, const CString& table, const wchar_t* column, long id, CADODatabase* db,
                 CString& message) {
  return QKRecordVerbs::DeleteWhereOrTell(runner, table, column, id, db, kErrorIcon,
                                          QKRecordVerbs::kDeleteFailedFullWidth, &message) != 0;
}

// The first child of parent that matches: by name exactly, or failing that (when byId) by id.
template <class Node>
Node* FindChild(Node* parent, const CString& name, long id, bool byId) {
  if (parent == nullptr) return nullptr;
  for (int i = 0; i < parent->arrChild.GetSize(); ++i) {
    Node* child = parent->arrChild[i];
    if (child->strName == name || (byId && child->nId == id)) return child;
  }
  return nullptr;
}

// One wall layer of material with thickness (mm) and correction factor of the bounding structure.
CQKTimberingData LayerOf(CQKMateralData& material, const double* thicknessMm, const double* factor) {
  CQKTimberingData layer;
  layer.SetStuffID(static_cast<int>(material.GetStuffID()));
  layer.SetStuffName(material.GetStuffName());
  layer.SetBRr(material.GetBRr());
  layer.SetDrXs(material.GetDrXs());
  layer.SetGMD(material.GetGMD());
  // The table keeps millimetres, a layer metres. A list shorter than the materials leaves the layer's
  // own defaults (no thickness, no correction) rather than reading past its end.
  if (thicknessMm != nullptr) layer.SetThick(*thicknessMm / 1000.0);
  if (factor != nullptr) layer.SetDrXsXz(*factor);
  layer.SetRoughness(material.GetRoughness());
  layer.SetTheAbs(material.GetTheAbs());
  layer.SetSolAbs(material.GetSolAbs());
  layer.SetVisAbs(material.GetVisAbs());
  layer.SetSolarT(material.GetSolarT());
  layer.SetSolarRFront(material.GetSolarRFront());
  layer.SetSolarRBack(material.GetSolarRBack());
  layer.SetVisibleT(material.GetVisibleT());
  layer.SetVisibleRFront(material.GetVisibleRFront());
  layer.SetVisibleRBack(material.GetVisibleRBack());
  layer.SetInfraredT(material.GetInfraredT());
  layer.SetInfraredEFront(material.GetInfraredEFront());
  layer.SetInfraredERBack(material.GetInfraredEBack());
  return layer;
}

}  // namespace

CQKBSDataAdmin::~CQKBSDataAdmin() { Release(); }

CQKBSDataAdmin::tagBSNode* CQKBSDataAdmin::GetBSNodes(int bRebuild) {
  if (bRebuild == 0 && m_pBSRoot != nullptr) return m_pBSRoot;
  if (m_pBSRoot != nullptr) ReleaseBSNodes(m_pBSRoot);
  MakeBSNodes();
  return m_pBSRoot;
}

CQKBSDataAdmin::tagTimbNode* CQKBSDataAdmin::GetTimbNodes(int bRebuild) {
  if (bRebuild == 0 && m_pTimbRoot != nullptr) return m_pTimbRoot;
  if (m_pTimbRoot != nullptr) ReleaseTimbNodes(m_pTimbRoot);
  MakeTimbNodes();
  return m_pTimbRoot;
}

int CQKBSDataAdmin::MakeBSNodes() {
  tablekit::ReadScope reading;  // one read transaction for the whole build
  m_pBSRoot = new tagBSNode(L"*全部围护结构类型*", -1, nullptr, 1);
  m_bsTree.reset(m_pBSRoot, tagBSNode::FreeTree);

  CQKBSCategory category;
  CString sql;
  sql.Format(L"select * from %s order by OrderId", category.GetTableName().GetString());
  CADORecordset categories;
  if (!category.ExecSql(sql, &categories, nullptr) || categories.GetRecordCount() < 1) return 0;
  for (; !categories.IsEOF(); categories.MoveNext()) {
    category.MakeObjectFromRS(categories);
    new tagBSNode(category.Name, category.GetID(), m_pBSRoot, 1);
  }
  categories.Close();

  category.Init();
  CQKBSType type;
  sql.Format(L"select * from %s order by BSDLId,Id", type.GetTableName().GetString());
  CADORecordset types;
  if (!type.ExecSql(sql, &types, nullptr)) return 0;
  if (types.GetRecordCount() < 1) return 1;
  // The types come sorted by category, so the parent is looked up once per category. A type whose
  // category id is 0 before any other (0 is also where the search starts) has had no lookup at all:
  // it is reported as a missing category too, so no node is ever made under an unknown parent.
  int lastCategory = 0;
  tagBSNode* parent = nullptr;
  for (; !types.IsEOF(); types.MoveNext()) {
    type.MakeObjectFromRS(types);
    if (type.BSDLId != lastCategory) {
      category.SetID(type.BSDLId);
      parent = FindBSDLNode(category);
      lastCategory = type.BSDLId;
    }
    if (parent == nullptr) {
      RvAfxMessageBox(L"没找到围护结构的大类？！", kErrorIcon);
      break;
    }
    new tagBSNode(type.Name, type.GetID(), parent, 0);
  }
  return 1;
}

int CQKBSDataAdmin::MakeTimbNodes() {
  tablekit::ReadScope reading;  // one read transaction for the whole build
  m_pTimbRoot = new tagTimbNode(L"*全部材质类型*", -1, nullptr, 1);
  m_timbTree.reset(m_pTimbRoot, tagTimbNode::FreeTree);

  CQKTimberingType type;
  CString sql;
  sql.Format(L"select * from %s order by Id", type.GetTableName().GetString());
  CADORecordset types;
  if (!type.ExecSql(sql, &types, nullptr)) return 0;
  CQKTimbering construction;
  for (; !types.IsEOF(); types.MoveNext()) {
    type.MakeObjectFromRS(types);
    tagTimbNode* typeNode = new tagTimbNode(type.Name, type.GetID(), m_pTimbRoot, 0);
    // A failed query here leaves the type without constructions.
    sql.Format(L"select * from %s where TTId=%d order by Id", construction.GetTableName().GetString(),
               static_cast<int>(type.GetID()));
    CADORecordset constructions;
    construction.ExecSql(sql, &constructions, nullptr);
    for (; !constructions.IsEOF(); constructions.MoveNext()) {
      construction.MakeObjectFromRS(constructions);
      new tagTimbNode(construction.GetStuffName(), construction.GetID(), typeNode, 1);
    }
    constructions.Close();
  }
  return 1;
}

CQKBSDataAdmin::tagBSNode* CQKBSDataAdmin::FindBSDLNode(CQKBSCategory& category) {
  return FindChild(m_pBSRoot, category.Name, category.GetID(), true);
}

CQKBSDataAdmin::tagBSNode* CQKBSDataAdmin::FindBSTNode(CQKBSCategory& category, CQKBSType& type) {
  return FindChild(FindBSDLNode(category), type.Name, type.GetID(), true);
}

CQKBSDataAdmin::tagBSNode* CQKBSDataAdmin::FindBSCNode(CQKBSCategory& category, CQKBSType& type, CQKBSCode& code) {
  return FindChild(FindBSTNode(category, type), code.Name, code.GetID(), true);
}

CQKBSDataAdmin::tagTimbNode* CQKBSDataAdmin::FindTimbTypeNode(tagTimbNode& typeKey) {
  return FindChild(m_pTimbRoot, typeKey.strName, typeKey.nId, false);
}

CQKBSDataAdmin::tagTimbNode* CQKBSDataAdmin::FindTimbNode(tagTimbNode& typeKey, tagTimbNode& key) {
  return FindChild(FindTimbTypeNode(typeKey), key.strName, key.nId, false);
}

int CQKBSDataAdmin::GetBS(CQKBoundingStructure& bs, long& codeId) {
  bs.Init();
  CString sql;
  sql.Format(L"select * from %s where BSCId=%d", bs.GetTableName().GetString(), static_cast<int>(codeId));
  CADORecordset rs;
  if (bs.ExecSql(sql, &rs, nullptr) && rs.GetRecordCount() >= 1) bs.MakeObjectFromRS(rs);
  return 1;
}

void CQKBSDataAdmin::GetBSCodeCWallDataAry(const CQKBSType& type, CLxArray<CQKWallData>& out, bool bCal,
                                           const CQKCrXs& crxs) {
  tablekit::ReadScope reading;  // one read transaction for every code, structure and construction
  out.RemoveAll();
  CQKBSCode code;
  CString sql;
  sql.Format(L"select * from %s where BSTId = %d order by Id", code.GetTableName().GetString(),
             static_cast<int>(type.GetID()));
  CADORecordset codes;
  if (!code.ExecSql(sql, &codes, nullptr) || codes.GetRecordCount() < 1) return;
  for (; !codes.IsEOF(); codes.MoveNext()) {
    CQKWallData wall;
    code.MakeObjectFromRS(codes);
    wall.Name = code.Name;
    CQKBoundingStructure bs;
    long codeId = code.GetID();
    GetBS(bs, codeId);
    CLxArray<CQKTimberingData> layers;
    for (int i = 0; i < bs.arrMaterial.GetSize(); ++i) {
      const double* thickness = i < bs.arrHouDu.GetSize() ? &bs.arrHouDu[i] : nullptr;
      const double* factor = i < bs.arrXzXs.GetSize() ? &bs.arrXzXs[i] : nullptr;
      layers.Add(LayerOf(bs.arrMaterial[i], thickness, factor));
    }
    wall.SetTimbering(layers, false);
    if (bCal) {
      wall.SetDjWHrXsData(crxs.DjWHrXs, false);
      wall.SetWHrXsData(crxs.WHrXs, false);
      wall.SetNHrXsData(crxs.NHrXs, false);
      wall.Cal(1);
      wall.Cal(0);
    }
    out.Add(wall);
  }
}

CString CQKBSDataAdmin::GetBSDemoBMPPath(CQKBSType& type, CQKBSCode& code) {
  return type.Name + L"\\" + code.Name + L".jpg";
}

CString CQKBSDataAdmin::GetBSTDemoBMPPath(CQKBSType& type) { return s_m_strBMPDir + L"\\" + type.Name + L".jpg"; }

void CQKBSDataAdmin::SetBMPDirPath(const CString& dir) { s_m_strBMPDir = dir; }

int CQKBSDataAdmin::DeleteBSCode(CQKBSCode& code, CString& message) {
  CADODatabase* db = code.GetUserDatabase();
  if (!DeleteWhere(code, code.GetTableName(), L"Id", code.GetID(), db, message)) return 1;
  CQKBoundingStructure bs;
  if (!DeleteWhere(code, bs.GetTableName(), L"BSCId", code.GetID(), db, message)) return 1;
  return 0;
}

int CQKBSDataAdmin::DeleteBSType(CQKBSType& type) {
  CString message;
  if (!DeleteWhere(type, type.GetTableName(), L"Id", type.GetID(), type.GetUserDatabase(), message)) return 0;
  CQKBSCode code;
  CString sql;
  sql.Format(L"select Id from %s where BSTId=%d", code.GetTableName().GetString(), static_cast<int>(type.GetID()));
  CADORecordset codes;
  // The rows are all read before the first deletion, so deleting while walking them is safe. When
  // they cannot be read there is nothing to walk: the type is gone, its codes stay, and the result is
  // still 1 without a message, as for a type that had no codes.
  code.ExecSql(sql, &codes, nullptr);
  for (; !codes.IsEOF(); codes.MoveNext()) {
    long id = 0;
    codes.GetFieldValue(L"Id", id);
    code.SetID(id);
    DeleteBSCode(code, message);
  }
  return 1;
}

int CQKBSDataAdmin::DeleteTimbering(CQKTimbering& construction, CString& message) {
  CString s;
  s.Format(L"%d", static_cast<int>(construction.GetID()));
  // Concatenated, not formatted: "%%" reaches the database as it stands and works there as the LIKE
  // wildcard. The four forms match a list that is exactly s, ends in ",s", starts with "s," or holds
  // ",s," (so 2 is found in "12,2" but not in "12", "21,22" or "122").
  const CString sql = L"select top 1 BSCId,TIdS from BoundingStructure where TIdS='" + s + L"' or TIdS like '%%," +
                      s + L"' or TIdS like '" + s + L",%%' or TIds like '%%," + s + L",%%'";
  CADODatabase* db = construction.GetUserDatabase();
  CADORecordset users;
  if (!QKRecordVerbs::OpenOnConnection(users, sql, db)) {
    RvAfxMessageBox(kDatabaseFailed, kErrorIcon);
    return 2;
  }
  if (!users.IsEOF()) {
    long codeId = 0;
    users.GetFieldValue(L"BSCId", codeId);
    CQKBSCode code;
    if (!code.ReadData(codeId)) {
      RvAfxMessageBox(kDatabaseFailed, kErrorIcon);
      return 3;
    }
    CQKBSType type;
    if (!type.ReadData(code.BSTId)) return 4;
    CString inUse;
    inUse.Format(L"围护结构 [%s] - [%s] 用到了该材质！", type.Name.GetString(), code.Name.GetString());
    RvAfxMessageBox(inUse, kWarningIcon);
    return 5;
  }
  return DeleteWhere(construction, construction.GetTableName(), L"Id", construction.GetID(), db, message) ? 0 : 1;
}

int CQKBSDataAdmin::DeleteTimberingType(CQKTimberingType& type) {
  CString message;
  return DeleteWhere(type, type.GetTableName(), L"Id", type.GetID(), type.GetUserDatabase(), message) ? 1 : 0;
}

void CQKBSDataAdmin::Release() {
  ReleaseBSNodes(m_pBSRoot);
  ReleaseTimbNodes(m_pTimbRoot);
}

void CQKBSDataAdmin::ReleaseBSNodes(tagBSNode* node) {
  if (node != nullptr && node == m_bsTree.get()) {
    // The whole tree: its shared owner frees it once the last admin lets go.
    m_bsTree.reset();
  } else if (node != nullptr) {
    tagBSNode::Detach(node);
    tagBSNode::FreeTree(node);
  }
  m_pBSRoot = nullptr;
}

void CQKBSDataAdmin::ReleaseTimbNodes(tagTimbNode* node) {
  if (node != nullptr && node == m_timbTree.get()) {
    m_timbTree.reset();
  } else if (node != nullptr) {
    tagTimbNode::Detach(node);
    tagTimbNode::FreeTree(node);
  }
  m_pTimbRoot = nullptr;
}
