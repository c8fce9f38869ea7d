#include "foundation/CQKReportData.h"

#include <memory>
#include <utility>
#include <vector>

CQKReportData::CQKReportData() : m_nState(1), m_nStates{1, 1, 1, 1, 1}, m_pParent(nullptr) {}

CQKReportData::CQKReportData(const CQKReportData& other) : CQKReportData() { *this = other; }

CQKReportData::~CQKReportData() { RemoveChild(); }

CQKReportData& CQKReportData::operator=(const CQKReportData& other) {
  if (&other == this) return *this;
  // Copy other's subtree aside first: other may lie inside this node's subtree, which RemoveAll
  // destroys. If an allocation fails, the partial copy is freed with holder.
  CQKReportData holder;
  CopySubtrees(other, holder);
  CopyTextsFrom(other);
  RemoveAll();
  for (int i = 0; i < holder.m_arrChildren.GetSize(); ++i) {
    AddChild(holder.m_arrChildren[i]);
    holder.m_arrChildren[i] = nullptr;
  }
  return *this;
}

int CQKReportData::AddChild(CQKReportData* child) {
  if (child == nullptr) return 0;
  m_arrChildren.Add(child);
  child->SetParent(this);
  return 1;
}

int CQKReportData::RemoveChild() {
  // Each node is emptied of its children before it is deleted, so its own destructor finds only null
  // slots and nothing recurses, however deep the tree.
  std::vector<CQKReportData*> doomed;
  for (int i = 0; i < m_arrChildren.GetSize(); ++i) {
    if (m_arrChildren[i] != nullptr) doomed.push_back(m_arrChildren[i]);
    m_arrChildren[i] = nullptr;
  }
  while (!doomed.empty()) {
    CQKReportData* node = doomed.back();
    doomed.pop_back();
    CArray<CQKReportData*, CQKReportData*>& children = node->m_arrChildren;
    for (int i = 0; i < children.GetSize(); ++i) {
      if (children[i] != nullptr) doomed.push_back(children[i]);
      children[i] = nullptr;
    }
    delete node;
  }
  return 1;
}

void CQKReportData::RemoveAll() { RemoveChild(); }

CQKReportData* CQKReportData::GetParent() { return m_pParent; }

CQKReportData* CQKReportData::GetRoot() {
  CQKReportData* node = this;
  while (node->m_pParent != nullptr) node = node->m_pParent;
  return node;
}

int CQKReportData::SetParent(CQKReportData* parent) {
  if (parent == nullptr) return 0;
  m_pParent = parent;
  return 1;
}

void CQKReportData::CopyTextsFrom(const CQKReportData& other) {
  m_Detail = other.m_Detail;
  m_strKey = other.m_strKey;
  m_strTexts[0] = other.m_strTexts[0];
  m_strTexts[1] = other.m_strTexts[1];
  m_nState = other.m_nState;
}

void CQKReportData::CopySubtrees(const CQKReportData& source, CQKReportData& target) {
  // Pairs of (node to copy from, its copy whose children are still to be made).
  std::vector<std::pair<const CQKReportData*, CQKReportData*>> pending{{&source, &target}};
  while (!pending.empty()) {
    auto [from, to] = pending.back();
    pending.pop_back();
    for (int i = 0; i < from->m_arrChildren.GetSize(); ++i) {
      const CQKReportData* child = from->m_arrChildren[i];
      if (child == nullptr) continue;
      auto copy = std::make_unique<CQKReportData>();
      copy->CopyTextsFrom(*child);
      to->AddChild(copy.get());
      pending.emplace_back(child, copy.release());
    }
  }
}
