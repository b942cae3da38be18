// GeListNode: a node of the host's trees: a parent, siblings and children. A node owns its
// children; destroying it destroys them. Insertion first removes the node from where it stood.
#pragma once

#include "host/HostTypes.h"

class BaseDocument;

class GeListNode {
 public:
  GeListNode() = default;
  GeListNode(const GeListNode&) = delete;
  GeListNode& operator=(const GeListNode&) = delete;
  virtual ~GeListNode();

  GeListNode* GetNext() const { return next_; }
  GeListNode* GetPred() const { return pred_; }
  // The parent; null at the top of a tree, also below a document's list head.
  GeListNode* GetUp() const { return parent_ && !parent_->isHead_ ? parent_ : nullptr; }
  GeListNode* GetDown() const { return down_; }
  GeListNode* GetDownLast() const { return downLast_; }

  void InsertUnder(GeListNode* parent);
  void InsertUnderLast(GeListNode* parent);
  void InsertBefore(GeListNode* sibling);
  void InsertAfter(GeListNode* sibling);
  // Takes the node out of its tree; the caller owns it from then on.
  void Remove();

  // The document whose list the node's tree hangs in, or null.
  BaseDocument* GetDocument() const;

 protected:
  // Called on a node whose children changed.
  virtual void onChildrenChanged() {}
  // Marks the node as the invisible head of a document's list.
  void makeHead(BaseDocument* document) {
    isHead_ = true;
    headDocument_ = document;
  }

 private:
  void link(GeListNode* parent, GeListNode* pred, GeListNode* next);

  GeListNode* parent_ = nullptr;
  GeListNode* next_ = nullptr;
  GeListNode* pred_ = nullptr;
  GeListNode* down_ = nullptr;
  GeListNode* downLast_ = nullptr;
  bool isHead_ = false;
  BaseDocument* headDocument_ = nullptr;
};
