#include "host/BaseObject.h"

#include <gtest/gtest.h>

#include "TestDataType.h"
#include "host/AliasTrans.h"
#include "host/BaseDocument.h"
#include "host/BaseTag.h"
#include "host/PolygonObject.h"
#include "host/SelectionTag.h"
#include "host/UVWTag.h"

namespace {

BaseObject* named(Int32 type, const String& name, BaseObject* parent = nullptr) {
  BaseObject* op = BaseObject::Alloc(type);
  op->SetName(name);
  if (parent) op->InsertUnderLast(parent);
  return op;
}

TEST(BaseObject, HierarchyWalkAndRemove) {
  BaseDocument doc;
  BaseObject* root = named(Onull, "root");
  doc.InsertObject(root, nullptr, nullptr);
  BaseObject* a = named(Onull, "a", root);
  BaseObject* b = named(Onull, "b", root);
  BaseObject* c = named(Onull, "c", root);
  EXPECT_EQ(root->GetUp(), nullptr);  // the document's list head is no parent
  EXPECT_EQ(root->GetDown(), a);
  EXPECT_EQ(a->GetNext(), b);
  EXPECT_EQ(c->GetPred(), b);
  EXPECT_EQ(b->GetUp(), root);
  EXPECT_EQ(b->GetDocument(), &doc);
  b->Remove();
  EXPECT_EQ(a->GetNext(), c);
  EXPECT_EQ(b->GetDocument(), nullptr);
  BaseObject::Free(b);
  EXPECT_EQ(doc.SearchObject("c"), c);
}

TEST(BaseObject, GlobalMatrixComposesParents) {
  BaseObject* parent = named(Onull, "p");
  BaseObject* child = named(Onull, "c", parent);
  parent->SetMl(MatrixMove(Vector(10, 0, 0)) * MatrixScale(Vector(2, 2, 2)));
  child->SetMl(MatrixMove(Vector(0, 1, 0)));
  EXPECT_EQ(child->GetMg() * Vector(), Vector(10, 2, 0));
  child->SetMg(MatrixMove(Vector(4, 4, 4)));
  EXPECT_EQ(child->GetMg().off, Vector(4, 4, 4));
  EXPECT_EQ(child->GetMl().off, Vector(-3, 2, 2));
  BaseObject::Free(parent);
}

TEST(BaseObject, DirtyCountsRiseWithDataAndMatrixChanges) {
  BaseObject* op = named(Onull, "op");
  UInt32 data = op->GetDirty(DIRTYFLAGS_DATA);
  UInt32 matrix = op->GetDirty(DIRTYFLAGS_MATRIX);
  op->SetMl(MatrixMove(Vector(1, 0, 0)));
  EXPECT_EQ(op->GetDirty(DIRTYFLAGS_DATA), data);
  EXPECT_NE(op->GetDirty(DIRTYFLAGS_MATRIX), matrix);
  op->SetParameter(DescID(1000), GeData(1.0), 0);
  EXPECT_NE(op->GetDirty(DIRTYFLAGS_DATA), data);
  UInt32 both = op->GetDirty(DIRTYFLAGS_DATA | DIRTYFLAGS_MATRIX);
  op->Message(MSG_UPDATE);
  EXPECT_NE(op->GetDirty(DIRTYFLAGS_DATA | DIRTYFLAGS_MATRIX), both);
  BaseObject::Free(op);
}

TEST(BaseObject, TagsInOrderAndKillByNumber) {
  BaseObject* op = named(Onull, "op");
  BaseTag* first = op->MakeTag(Tpolygonselection);
  BaseTag* second = op->MakeTag(Tpolygonselection, first);
  BaseTag* front = op->MakeTag(Tphong);  // no predecessor: first among the tags
  EXPECT_EQ(op->GetFirstTag(), front);
  EXPECT_EQ(front->GetNext(), first);
  EXPECT_EQ(op->GetTag(Tpolygonselection, 1), second);
  op->KillTag(Tpolygonselection, 0);
  EXPECT_EQ(op->GetTag(Tpolygonselection), second);
  EXPECT_EQ(op->MakeTag(123456), nullptr);
  BaseObject::Free(op);
}

TEST(BaseObject, CopyTagsToFiltersByClassProperties) {
  BaseObject* source = named(Onull, "s");
  source->SetPhong(true, true, 1.0);
  source->MakeTag(Ttexture);
  source->MakeVariableTag(Tuvw, 4);
  struct Row {
    Int32 visible, variable, hierarchical;
    int expected;
  };
  for (const Row& row : {Row{1, 0, 0, 1}, Row{-1, -1, -1, 3}, Row{1, 1, -1, 1}, Row{-1, 0, 1, 1}}) {
    BaseObject* target = named(Onull, "t");
    EXPECT_TRUE(source->CopyTagsTo(target, row.visible, row.variable, row.hierarchical, nullptr));
    int count = 0;
    for (BaseTag* tag = target->GetFirstTag(); tag; tag = tag->GetNext()) ++count;
    EXPECT_EQ(count, row.expected);
    BaseObject::Free(target);
  }
  BaseObject::Free(source);
}

TEST(BaseObject, CloneCopiesHierarchyTagsAndTranslatesInnerLinks) {
  BaseObject* root = named(Onull, "root");
  BaseObject* target = named(Onull, "target", root);
  BaseObject* linker = named(Onull, "linker", root);
  BaseObject* outside = named(Onull, "outside");
  linker->GetDataInstance()->SetLink(1, target);
  linker->GetDataInstance()->SetLink(2, outside);
  linker->MakeTag(Tphong);
  AliasTrans trans;
  BaseObject* clone = root->GetClone(COPYFLAGS_NONE, &trans);
  trans.Translate(true);
  BaseObject* clonedTarget = clone->GetDown();
  BaseObject* clonedLinker = clonedTarget->GetNext();
  EXPECT_EQ(clonedLinker->GetName(), "linker");
  EXPECT_NE(clonedLinker->GetTag(Tphong), nullptr);
  EXPECT_EQ(clonedLinker->GetDataInstance()->GetObjectLink(1), clonedTarget);
  EXPECT_EQ(clonedLinker->GetDataInstance()->GetObjectLink(2), outside);
  BaseObject* flat = root->GetClone(COPYFLAGS_NO_HIERARCHY, nullptr);
  EXPECT_EQ(flat->GetDown(), nullptr);
  for (BaseObject* op : {root, clone, outside, flat}) BaseObject::Free(op);
}

TEST(BaseObject, SubParameterOfCustomDataGoesToItsClass) {
  registerTestDataType();
  BaseObject* op = named(Onull, "op");
  op->GetDataInstance()->SetData(5, GeData(kTestDataTypeId, numberList({1.0, 2.0})));
  EXPECT_TRUE(op->SetParameter(DescID(DescLevel(5), DescLevel(2)), GeData(7.0), 0));
  auto* list =
      static_cast<NumberList*>(op->GetDataInstance()->GetCustomDataType(5, kTestDataTypeId));
  EXPECT_EQ(list->values, (std::vector<Float>{1.0, 7.0}));
  EXPECT_FALSE(op->SetParameter(DescID(DescLevel(5), DescLevel(9)), GeData(7.0), 0));
  EXPECT_FALSE(op->SetParameter(DescID(DescLevel(6), DescLevel(1)), GeData(7.0), 0));
  BaseObject::Free(op);
}

TEST(BaseObject, RelativeScaleAndRotationComeFromTheMatrix) {
  BaseObject* op = named(Onull, "op");
  op->SetRelRot(Vector(0.5, -0.25, 0.125));
  op->SetRelScale(Vector(2, 3, 4));
  op->SetRelPos(Vector(1, 2, 3));
  Vector rot = op->GetRelRot(), scale = op->GetRelScale();
  EXPECT_NEAR(rot.x, 0.5, 1e-12);
  EXPECT_NEAR(rot.y, -0.25, 1e-12);
  EXPECT_NEAR(rot.z, 0.125, 1e-12);
  EXPECT_NEAR(scale.y, 3.0, 1e-12);
  EXPECT_EQ(op->GetRelPos(), Vector(1, 2, 3));
  BaseObject::Free(op);
}

TEST(PolygonObject, ResizeKeepsWhatFitsAndResizesUvwAndSelections) {
  PolygonObject* poly = PolygonObject::Alloc(4, 2);
  auto* uvw = static_cast<UVWTag*>(poly->MakeVariableTag(Tuvw, 2));
  auto* selection = static_cast<SelectionTag*>(poly->MakeTag(Tpolygonselection));
  selection->GetBaseSelect()->Select(1);
  poly->GetPointW()[3] = Vector(1, 2, 3);
  ASSERT_TRUE(poly->ResizeObject(8, 5));
  EXPECT_EQ(poly->GetPointR()[3], Vector(1, 2, 3));
  EXPECT_EQ(uvw->GetDataCount(), 5);
  ASSERT_TRUE(poly->ResizeObject(2, 1));
  EXPECT_EQ(selection->GetBaseSelect()->GetCount(), 0);
  EXPECT_FALSE(poly->ResizeObject(-1, 1));
  EXPECT_FALSE(poly->ResizeObject(1, 1 << 30));
  EXPECT_EQ(poly->GetPointCount(), 2);
  EXPECT_EQ(PolygonObject::Alloc(-3, 0), nullptr);
  BaseObject* base = poly;
  BaseObject::Free(base);
}

}  // namespace
