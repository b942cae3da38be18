// Curves in documents: a Branch's thickness curve saved and loaded through the document file.
#include <gtest/gtest.h>

#include "host/BaseDocument.h"
#include "host/BaseObject.h"
#include "host/DocumentFile.h"
#include "source/CurveDataType.h"
#include "source/CurveStorage.h"
#include "source/PluginIds.h"
#include "support/ByteCurveStream.h"

namespace {

constexpr Int32 kThickness = 1104;

std::vector<uint8_t> storedBytes(const mv::CurveParam& curve) {
  ByteCurveStream stream;
  CurveStorage::write(curve, stream);
  return stream.bytes();
}

}  // namespace

TEST(CurveDocument, aCurveParameterSurvivesSaveAndLoad) {
  BaseDocument* doc = BaseDocument::Alloc();
  BaseObject* branch = BaseObject::Alloc(ID_BRANCH_OBJECT);
  branch->SetName("Stem");
  doc->InsertObject(branch, nullptr, nullptr);
  mv::CurveParam thickness(0.0, 2.0, 1.5, 0.25, "x*(1+u)");
  thickness.addPoint(0.4, 1.0, mv::PointSmooth);
  mv::CurvePoint free = mv::CurvePoint::at(0.7, 0.5, mv::PointFree, 9);
  free.inX = 0.65;
  free.outY = 0.75;
  ASSERT_TRUE(thickness.setPoint(free, true));
  thickness.setFixedLimits(1);
  branch->GetDataInstance()->SetData(kThickness, GeData(CURVE_TYPE_ID, CurveDataType(thickness)));

  const String text = DocumentFile::ToText(doc);
  String error;
  BaseDocument* loaded = DocumentFile::FromText(text, error);
  ASSERT_NE(loaded, nullptr) << error;
  const CustomDataType* data =
      loaded->SearchObject("Stem")->GetDataInstance()->GetCustomDataType(kThickness, CURVE_TYPE_ID);
  ASSERT_NE(data, nullptr) << text;
  const auto& read = *static_cast<const CurveDataType*>(data);
  EXPECT_EQ(storedBytes(read), storedBytes(thickness));
  EXPECT_DOUBLE_EQ(read.evaluate(0.4), 1.0 * 1.4);
  EXPECT_EQ(DocumentFile::ToText(loaded), text);
  BaseDocument::Free(loaded);
  BaseDocument::Free(doc);
}
