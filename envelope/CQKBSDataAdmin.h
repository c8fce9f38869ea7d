#pragma once
// CQKBSDataAdmin: the envelope catalogue as a host dialog uses it. It builds and owns two display
// trees read from the tables: the envelope tree (root, categories, types; codes are never in it) and
// the construction tree (root, construction types, constructions). It finds nodes in them, reads the
// bounding structure of an envelope code, turns every code of an envelope type into a wall ready for
// the load calculation, forms the paths of the demonstration pictures and deletes codes, types and
// constructions with what depends on them.
//
// Trees are built on the first GetBSNodes / GetTimbNodes and rebuilt on request; node pointers stay
// valid until the next rebuild, Release or destruction. Deletions change the tables only: the trees
// show deleted rows until rebuilt. A copy shares the trees of its source; a tree lives until the last
// admin sharing it rebuilds, releases or is destroyed, so sharing never frees a tree twice.
//
// Results differ between the deletions on purpose and hosts depend on them: DeleteBSCode and
// DeleteTimbering give 0 on success, DeleteBSType and DeleteTimberingType give 1. Messages are shown
// with RvAfxMessageBox and no owner (style 16 error, 48 warning). Single-threaded: one admin serves
// one dialog on the host's user-interface thread.

#include <memory>

#include "QKExport.h"
#include "construction/CQKTimbering.h"
#include "construction/CQKTimberingType.h"
#include "construction/CQKWallData.h"
#include "envelope/CQKBSCategory.h"
#include "envelope/CQKBSCode.h"
#include "envelope/CQKBSType.h"
#include "envelope/CQKBoundingStructure.h"
#include "envelope/CQKCrXs.h"
#include "foundation/CLxArray.h"
#include "foundation/QKTreeNode.h"
#include "mfc/CString.h"

class QK_EXPORT CQKBSDataAdmin {
 public:
  // Envelope tree: root "*全部围护结构类型*" (id -1, flag 1), categories (flag 1), types (flag 0).
  struct tagBSNode : QKTreeNode<tagBSNode> {
    using QKTreeNode::QKTreeNode;
  };
  // Construction tree: root "*全部材质类型*" (id -1, flag 1), construction types (flag 0),
  // constructions by material name (flag 1).
  struct tagTimbNode : QKTreeNode<tagTimbNode> {
    using QKTreeNode::QKTreeNode;
  };

  CQKBSDataAdmin() = default;
  CQKBSDataAdmin(const CQKBSDataAdmin&) = default;
  CQKBSDataAdmin& operator=(const CQKBSDataAdmin&) = default;
  // Releases both trees (a tree shared with a copy lives on in the copy).
  virtual ~CQKBSDataAdmin();

  // The tree as it is when bRebuild is 0 and one exists; otherwise the old tree goes and a new one is
  // read, whose root is returned also when reading stopped early.
  virtual tagBSNode* GetBSNodes(int bRebuild);
  virtual tagTimbNode* GetTimbNodes(int bRebuild);

  // Each lookup scans the children of one node in order and returns the first whose name equals the
  // key's name exactly (case counts) or, failing that, whose id equals the key's ID; null when none
  // (or no tree). An empty name matches an empty name before ids are compared.
  tagBSNode* FindBSDLNode(CQKBSCategory& category);
  // Among the children of category's node.
  tagBSNode* FindBSTNode(CQKBSCategory& category, CQKBSType& type);
  // Among the children of type's node: null for every tree GetBSNodes builds, which holds no codes.
  tagBSNode* FindBSCNode(CQKBSCategory& category, CQKBSType& type, CQKBSCode& code);
  // By name only (the key's nId is not looked at): a construction type among the root's children.
  tagTimbNode* FindTimbTypeNode(tagTimbNode& typeKey);
  // By name only: a construction among the children of typeKey's type node.
  tagTimbNode* FindTimbNode(tagTimbNode& typeKey, tagTimbNode& key);

  // Loads the first bounding structure of envelope code codeId (from bs's own database) into bs,
  // which is first initialised; a code without one leaves bs initialised. Always 1.
  int GetBS(CQKBoundingStructure& bs, long& codeId);
  // One wall per envelope code of type, in ID order: named after the code, with one layer per
  // construction of its bounding structure (thickness mm → m, the conductivity's correction factor).
  // With bCal the wall takes crxs's coefficients and is computed for winter then summer. out is
  // emptied first and stays empty when the type has no codes or the codes cannot be read.
  void GetBSCodeCWallDataAry(const CQKBSType& type, CLxArray<CQKWallData>& out, bool bCal, const CQKCrXs& crxs);

  // <type name>\<code name>.jpg, without the picture folder: the host puts that in front. Neither
  // path is checked for a file, nor any "HaveDemoBMP" flag.
  CString GetBSDemoBMPPath(CQKBSType& type, CQKBSCode& code);
  // <picture folder>\<type name>.jpg, the folder exactly as SetBMPDirPath stored it.
  CString GetBSTDemoBMPPath(CQKBSType& type);
  // The picture folder of every admin; empty until set.
  static void SetBMPDirPath(const CString& dir);

  // Deletes the code's row, then its bounding structures, on the code's connection: 0, or 1 after the
  // deletion message (error icon) naming the table that failed, also put into message. A failure at
  // the second step leaves the code deleted and its bounding structures in place.
  int DeleteBSCode(CQKBSCode& code, CString& message);
  // Deletes the type's row, then each of its codes as DeleteBSCode does (a code that fails shows its
  // message and the others go on): 1, or 0 after the deletion message when the type's row could not
  // be deleted (its codes are then untouched). Each statement stands on its own: once the type's row
  // is gone the result is 1 whatever befalls its codes, and a code that could not be deleted, or
  // codes that could not be listed at all (no message then), stay under a type that no longer
  // exists.
  int DeleteBSType(CQKBSType& type);
  // Deletes the construction unless a row of the table "BoundingStructure" lists it in its "TIdS":
  // 0 deleted; 1 the delete failed (message shown and put into message); 2 the usage query could not
  // run; 3 the using code could not be read; 4 that code's type could not be read; 5 in use, nothing
  // deleted, after "围护结构 [<type>] - [<code>] 用到了该材质！" (warning icon).
  int DeleteTimbering(CQKTimbering& construction, CString& message);
  // Deletes the construction type's row only (its constructions stay: the host moves or deletes them
  // first): 1, or 0 after the deletion message.
  int DeleteTimberingType(CQKTimberingType& type);
  // Lets go of both trees.
  void Release();

  tagBSNode* m_pBSRoot = nullptr;      // the envelope tree, or null
  tagTimbNode* m_pTimbRoot = nullptr;  // the construction tree, or null
  static CString s_m_strBMPDir;        // the picture folder

 protected:
  // Frees node's subtree, then node, and sets m_pBSRoot to null, also for an inner node (which first
  // leaves its parent's children, so the rest of the tree stays whole until it is released).
  void ReleaseBSNodes(tagBSNode* node);
  void ReleaseTimbNodes(tagTimbNode* node);

 private:
  friend struct CQKBSDataAdminProbe;  // the tests' view of the two builders

  // Builds a new envelope tree: 0 when the categories cannot be read or there are none (the root then
  // has no children) or the types cannot be read; 1 otherwise, also when it stopped at a type whose
  // category is missing.
  int MakeBSNodes();
  // Builds a new construction tree: 0 when the construction types cannot be read, else 1.
  int MakeTimbNodes();

  std::shared_ptr<tagBSNode> m_bsTree;      // owns m_pBSRoot's tree, shared with copies
  std::shared_ptr<tagTimbNode> m_timbTree;  // owns m_pTimbRoot's tree, shared with copies
};
