#pragma once
// QKTreeNode<Node>: the node of the administration classes' display trees (Node derives from it,
// naming itself: struct tagBSNode : QKTreeNode<tagBSNode>). A node made with a parent appends itself
// to the parent's children, so the children keep the order in which the rows were read. Destroying
// a node does not destroy its children; FreeTree does. Internal to the library's headers.

#include "mfc/CArray.h"
#include "mfc/CString.h"

template <class Node>
struct QKTreeNode {
  QKTreeNode(const wchar_t* name, long id, Node* parent, int flag)
      : strName(name), nFlag(flag), nId(id), pParent(parent) {
    if (parent != nullptr) parent->arrChild.Add(static_cast<Node*>(this));
  }
  QKTreeNode(const QKTreeNode&) = delete;
  QKTreeNode& operator=(const QKTreeNode&) = delete;

  CString strName;               // what the tree shows
  int nFlag;                     // the level's flag
  long nId;                      // the ID of the row the node stands for; -1 for a root
  Node* pParent;                 // null for a root
  CArray<Node*, Node*> arrChild;  // in the order they were made

  // Frees node and every node under it, children first; null is ignored.
  static void FreeTree(Node* node) {
    if (node == nullptr) return;
    for (int i = 0; i < node->arrChild.GetSize(); ++i) FreeTree(node->arrChild[i]);
    delete node;
  }
  // Takes node out of its parent's children, so that the parent's tree can be freed later without
  // it; a root is left as it is.
  static void Detach(Node* node) {
    if (node == nullptr || node->pParent == nullptr) return;
    CArray<Node*, Node*>& siblings = node->pParent->arrChild;
    for (int i = 0; i < siblings.GetSize(); ++i) {
      if (siblings[i] == node) {
        siblings.RemoveAt(i);
        break;
      }
    }
    node->pParent = nullptr;
  }
};
