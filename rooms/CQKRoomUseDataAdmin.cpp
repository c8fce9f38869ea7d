#include "rooms/CQKRoomUseDataAdmin.h"

#include "foundation/QKRecordVerbs.h"
#include "rooms/CQKRULoadParam.h"
#include "tablekit/CADORecordset.h"
#include "tablekit/reads/ReadScope.h"

namespace {

constexpr unsigned int kErrorIcon = 16;  // MB_ICONERROR

}  // namespace

void CQKRoomUseDataAdmin::ReleaseRoomUseNodes(tagRoomUseNode* node) {
  // The whole tree is the shared owner's to free, once its last admin lets go.
  if (node != nullptr && node == m_tree.get()) {
    m_tree.reset();
    return;
  }
  tagRoomUseNode::Detach(node);
  tagRoomUseNode::FreeTree(node);
}

CQKRoomUseDataAdmin::tagRoomUseNode* CQKRoomUseDataAdmin::GetRoomUseNodes(int bRebuild) {
  if (bRebuild == 0 && m_pRoomUseRoot != nullptr) return m_pRoomUseRoot;
  MakeRoomUseNodes();
  return m_pRoomUseRoot;
}

int CQKRoomUseDataAdmin::MakeRoomUseNodes() {
  tablekit::ReadScope reading;  // one read transaction for the whole build
  // The old tree goes when the last admin sharing it lets go.
  m_pRoomUseRoot = new tagRoomUseNode(L"*", -1, nullptr, 1);
  m_tree.reset(m_pRoomUseRoot, tagRoomUseNode::FreeTree);

  CQKRoomType type;
  CQKRoomUse use;
  CString sql;
  sql.Format(L"select * from %s order by Id", type.GetTableName().GetString());
  CADORecordset types;
  if (!type.ExecSql(sql, &types, nullptr)) return 0;
  for (; !types.IsEOF(); types.MoveNext()) {
    type.MakeObjectFromRS(types);
    tagRoomUseNode* typeNode = new tagRoomUseNode(type.Name, type.GetID(), m_pRoomUseRoot, 1);
    // A failed query here leaves the type without room uses.
    sql.Format(L"select * from %s where RTId=%d order by Id", use.GetTableName().GetString(),
               static_cast<int>(type.GetID()));
    CADORecordset uses;
    use.ExecSql(sql, &uses, nullptr);
    for (; !uses.IsEOF(); uses.MoveNext()) {
      use.MakeObjectFromRS(uses);
      new tagRoomUseNode(use.Name, use.GetID(), typeNode, 1);
    }
    uses.Close();
  }
  return 1;
}

CQKRoomUseDataAdmin::tagRoomUseNode* CQKRoomUseDataAdmin::FindRoomUseNode(tagRoomUseNode* typeNode,
                                                                          tagRoomUseNode& key) {
  if (typeNode == nullptr) return nullptr;
  for (int i = 0; i < typeNode->arrChild.GetSize(); ++i) {
    if (typeNode->arrChild[i]->strName == key.strName) return typeNode->arrChild[i];
  }
  return nullptr;
}

CQKRoomUseDataAdmin::tagRoomUseNode* CQKRoomUseDataAdmin::FindRoomTypeNode(tagRoomUseNode& key) {
  return FindRoomUseNode(m_pRoomUseRoot, key);
}

int CQKRoomUseDataAdmin::DeleteRoomUse(CQKRoomUse& roomUse) {
  CADODatabase* db = roomUse.GetUserDatabase();
  CQKRULoadParam parameters;
  if (!QKRecordVerbs::DeleteRowOrTell(roomUse, parameters.GetTableName(), roomUse.GetID(), db, kErrorIcon)) return 0;
  return QKRecordVerbs::DeleteRowOrTell(roomUse, roomUse.GetTableName(), roomUse.GetID(), db, kErrorIcon);
}

int CQKRoomUseDataAdmin::DeleteRoomType(CQKRoomType& roomType) {
  tagRoomUseNode key(roomType.Name, -1, nullptr, 1);
  if (tagRoomUseNode* typeNode = FindRoomTypeNode(key)) {
    for (int i = 0; i < typeNode->arrChild.GetSize(); ++i) {
      CQKRoomUse use;
      use.SetID(typeNode->arrChild[i]->nId);
      DeleteRoomUse(use);
    }
  }
  return QKRecordVerbs::DeleteRowOrTell(roomType, roomType.GetTableName(), roomType.GetID(),
                                       roomType.GetUserDatabase(), kErrorIcon);
}
