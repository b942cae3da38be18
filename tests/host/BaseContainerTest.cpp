#include "host/BaseContainer.h"

#include <gtest/gtest.h>

#include "TestDataType.h"
#include "host/BaseObject.h"
#include "host/HyperFile.h"

namespace {

TEST(BaseContainer, AbsentOrOtherKindGivesFallback) {
  BaseContainer bc;
  bc.SetString(1, "text");
  EXPECT_EQ(bc.GetLong(1, 7), 7);
  EXPECT_EQ(bc.GetReal(2, 1.5), 1.5);
  EXPECT_TRUE(bc.GetBool(3, true));
  EXPECT_EQ(bc.GetVector(1, Vector(1, 2, 3)), Vector(1, 2, 3));
}

TEST(BaseContainer, NumbersConvertBetweenIntegerAndReal) {
  BaseContainer bc;
  bc.SetLong(1, 3);
  bc.SetReal(2, 2.75);
  bc.SetBool(3, true);
  EXPECT_EQ(bc.GetReal(1), 3.0);
  EXPECT_EQ(bc.GetLong(2), 2);
  EXPECT_EQ(bc.GetLong(3), 1);
  EXPECT_EQ(bc.GetData(3).GetType(), DA_LONG);
}

TEST(BaseContainer, KeepsOrderOfFirstSetAndRemoves) {
  BaseContainer bc;
  bc.SetLong(30, 1);
  bc.SetLong(10, 2);
  bc.SetLong(30, 3);
  EXPECT_EQ(bc.GetIndexId(0), 30);
  EXPECT_EQ(bc.GetIndexId(1), 10);
  EXPECT_EQ(bc.GetIndexId(2), -1);
  EXPECT_TRUE(bc.RemoveData(30));
  EXPECT_FALSE(bc.RemoveData(30));
  EXPECT_EQ(bc.GetCount(), 1);
}

TEST(BaseContainer, NestedContainersAreDeepCopies) {
  BaseContainer inner;
  inner.SetReal(5, 1.0);
  BaseContainer outer;
  outer.SetContainer(1, inner);
  BaseContainer copy = outer;
  copy.GetContainerInstance(1)->SetReal(5, 2.0);
  EXPECT_EQ(outer.GetContainer(1).GetReal(5), 1.0);
  EXPECT_EQ(copy.GetContainer(1).GetReal(5), 2.0);
  EXPECT_NE(outer, copy);
}

TEST(BaseContainer, LinkResolvesWhileTargetLives) {
  BaseObject* target = BaseObject::Alloc(Onull);
  BaseContainer bc;
  bc.SetLink(1, target);
  EXPECT_EQ(bc.GetObjectLink(1), target);
  BaseObject::Free(target);
  EXPECT_EQ(bc.GetObjectLink(1), nullptr);
  EXPECT_EQ(bc.GetData(1).GetType(), DA_ALIASLINK);
}

TEST(BaseContainer, CustomDataIsCopiedAndComparedThroughItsClass) {
  registerTestDataType();
  BaseContainer bc;
  bc.SetData(1, GeData(kTestDataTypeId, numberList({1.0, 2.0})));
  BaseContainer copy = bc;
  auto* original = static_cast<NumberList*>(bc.GetCustomDataType(1, kTestDataTypeId));
  ASSERT_NE(original, nullptr);
  EXPECT_EQ(copy, bc);
  original->values[0] = 9.0;
  EXPECT_NE(copy, bc);
  EXPECT_EQ(static_cast<NumberList*>(copy.GetCustomDataType(1, kTestDataTypeId))->values[0], 1.0);
  EXPECT_EQ(bc.GetCustomDataType(1, kTestDataTypeId + 1), nullptr);
}

TEST(BaseContainer, UnregisteredCustomTypeHoldsNothing) {
  GeData value(1999999, numberList({1.0}));
  EXPECT_EQ(value.GetType(), DA_NIL);
}

TEST(HyperFile, ReadsValuesInOrderAndFailsOnOtherKinds) {
  HyperFile file;
  file.WriteInt32(3);
  file.WriteFloat64(0.5);
  file.WriteString("x");
  file.WriteInt32(4);
  Int32 i = 0;
  Float64 f = 0;
  String s;
  EXPECT_TRUE(file.ReadInt32(&i));
  EXPECT_TRUE(file.ReadFloat64(&f));
  EXPECT_TRUE(file.ReadString(&s));
  EXPECT_EQ(i, 3);
  EXPECT_EQ(f, 0.5);
  EXPECT_EQ(s, "x");
  EXPECT_TRUE(file.ReadFloat64(&f));  // a whole number reads as a real
  EXPECT_EQ(f, 4.0);
  EXPECT_FALSE(file.ReadInt32(&i));  // past the end
  EXPECT_FALSE(file.IsOk());
}

TEST(HyperFile, StringDoesNotReadAsNumber) {
  HyperFile file;
  file.WriteString("1");
  Int32 i = 0;
  EXPECT_FALSE(file.ReadInt32(&i));
  String s;
  EXPECT_FALSE(file.ReadString(&s));  // the file stays in error
}

}  // namespace
