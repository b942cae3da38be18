#include "host/GeListNode.h"

GeListNode::~GeListNode() {
  Remove();
  while (down_) delete down_;  // a child's destructor unlinks it
}

void GeListNode::link(GeListNode* parent, GeListNode* pred, GeListNode* next) {
  parent_ = parent;
  pred_ = pred;
  next_ = next;
  if (pred) pred->next_ = this;
  if (next) next->pred_ = this;
  if (parent) {
    if (!pred) parent->down_ = this;
    if (!next) parent->downLast_ = this;
    parent->onChildrenChanged();
  }
}

void GeListNode::InsertUnder(GeListNode* parent) {
  if (!parent || parent == this) return;
  Remove();
  link(parent, nullptr, parent->down_);
}

void GeListNode::InsertUnderLast(GeListNode* parent) {
  if (!parent || parent == this) return;
  Remove();
  link(parent, parent->downLast_, nullptr);
}

void GeListNode::InsertBefore(GeListNode* sibling) {
  if (!sibling || sibling == this) return;
  Remove();
  link(sibling->parent_, sibling->pred_, sibling);
}

void GeListNode::InsertAfter(GeListNode* sibling) {
  if (!sibling || sibling == this) return;
  Remove();
  link(sibling->parent_, sibling, sibling->next_);
}

void GeListNode::Remove() {
  GeListNode* parent = parent_;
  if (pred_) pred_->next_ = next_;
  if (next_) next_->pred_ = pred_;
  if (parent) {
    if (parent->down_ == this) parent->down_ = next_;
    if (parent->downLast_ == this) parent->downLast_ = pred_;
  }
  parent_ = pred_ = next_ = nullptr;
  if (parent) parent->onChildrenChanged();
}

BaseDocument* GeListNode::GetDocument() const {
  const GeListNode* node = this;
  while (node->parent_) node = node->parent_;
  return node->isHead_ ? node->headDocument_ : nullptr;
}
