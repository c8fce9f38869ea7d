#pragma once
// CQKReportData: one node of a report tree that the host fills and walks. Each node owns its children
// (m_arrChildren) and frees them when it is destroyed; m_pParent is a plain back link. The library
// gives the texts no meaning.
//
// The rule a caller must not miss: removing or replacing children leaves their slots in
// m_arrChildren holding null, so every walk of m_arrChildren must skip null entries. A node must be
// the child of one parent only, once. Destroying and copying do not recurse, so a tree of any depth
// is safe. Not safe for concurrent use.

#include "QKExport.h"
#include "mfc/CArray.h"
#include "mfc/CString.h"

class QK_EXPORT CQKReportData {
 public:
  // A further group of three texts of the entry.
  struct Detail {
    CString strText;
    CString strTexts[2];
  };

  CQKReportData();
  // A deep copy of other's texts and subtree; m_nStates keeps its defaults and the copy has no parent.
  CQKReportData(const CQKReportData& other);
  // Destroys the whole subtree. The node is not taken out of its parent's array.
  ~CQKReportData();

  // Destroys this node's subtree and copies other's texts, m_nState and subtree (null slots of other
  // are skipped). m_nStates and m_pParent are kept. Former children leave null slots ahead of the new
  // ones. other may be a node of this node's own subtree. Nothing happens when other is this node.
  CQKReportData& operator=(const CQKReportData& other);

  // Appends child and makes this node its parent: 1, or 0 (and no change) for null. A former parent
  // keeps its slot pointing to child: null that slot, or the child is freed twice.
  int AddChild(CQKReportData* child);
  // Destroys every child with its subtree; each slot stays, holding null. Returns 1.
  int RemoveChild();
  // The same as RemoveChild.
  void RemoveAll();

  CQKReportData* GetParent();
  // The top of the tree: the first node upward without a parent (this node when it has none).
  CQKReportData* GetRoot();

  CString m_strKey;
  CString m_strTexts[2];
  int m_nState;
  int m_nStates[5];
  Detail m_Detail;
  CArray<CQKReportData*, CQKReportData*> m_arrChildren;
  CQKReportData* m_pParent;

 private:
  // 1, or 0 (and no change) for null.
  int SetParent(CQKReportData* parent);
  // What assignment copies of one node: every text and m_nState, not m_nStates.
  void CopyTextsFrom(const CQKReportData& other);
  // Appends to target a copy of every subtree under source, walking with a stack of its own.
  static void CopySubtrees(const CQKReportData& source, CQKReportData& target);
};
