#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "classic/SceneGraph.h"
#include "curves/ParameterSetData.h"
#include "host/BaseContainer.h"
#include "host/BaseDocument.h"
#include "host/BaseObject.h"
#include "host/DocumentFile.h"
#include "host/DocumentMesh.h"
#include "host/SceneLoaderData.h"
#include "scene/MvrSceneLoader.h"
#include "source/MvrLoader.h"
#include "support/CapturingConsole.h"
#include "support/CapturingMessageHandler.h"
#include "support/SceneMutation.h"
#include "support/SceneRendering.h"
#include "support/TestOutput.h"

namespace {

size_t trianglesOf(const mv::IMesh& mesh) {
  size_t triangles = 0;
  for (uint32_t i = 0; i < mesh.getPolygonCount(); ++i) {
    mv::MeshPolygon polygon;
    mesh.getPolygon(i, polygon);
    triangles += polygon.c == polygon.d ? 1 : 2;
  }
  return triangles;
}

size_t classicTriangles(const std::string& path, double unit) {
  mv::SceneGraph graph;
  mv::MvrSceneLoader loader(&graph);
  mv::ParameterSetData settings;
  loader.initParameters(settings, unit);
  loader.load(settings, path);
  return trianglesOf(renderNode(graph));
}

size_t convertedTriangles(const std::string& path, double unit) {
  BaseDocument* document = BaseDocument::Alloc();
  BaseContainer data;
  MvrLoader::initSettings(data);
  data.SetLong(MvrLoader::IdImportMode, MvrLoader::ModeGenerators);
  data.SetReal(MvrLoader::IdUnit, unit);
  mv::ParameterSetData settings;
  MvrLoader::copySettings(data, settings);
  MvrLoader::importGenerators(Filename(path), document, SCENEFILTER_OBJECTS, data, settings);
  DocumentMesh mesh;
  const size_t triangles = mesh.collect(document) ? trianglesOf(mesh.mesh()) : 0;
  BaseDocument::Free(document);
  return triangles;
}

const char* const kExamples[] = {"horn", "hydra",           "leaf",   "oak",       "plant",
                                 "pot",  "shared-children", "solids", "sunflower", "vase"};

std::string examplePath(const std::string& name) {
  return std::string(MORVO_SOURCE_DIR) + "/examples/" + name + ".mvr";
}

}  // namespace

TEST(MvrImportExamples, thePolygonImportIsTheClassicRenderAsOneObject) {
  CapturingConsole console;
  CapturingMessageHandler messages;
  for (const char* name : kExamples) {
    BaseDocument* document = BaseDocument::Alloc();
    BaseContainer data;
    MvrLoader::initSettings(data);
    mv::ParameterSetData settings;
    MvrLoader::copySettings(data, settings);
    EXPECT_EQ(MvrLoader::importPolygons(Filename(examplePath(name)), document, data, settings),
              FILEERROR_NONE);
    ASSERT_TRUE(document->GetFirstObject()) << name;
    EXPECT_FALSE(document->GetFirstObject()->GetNext()) << name;
    DocumentMesh mesh;
    ASSERT_TRUE(mesh.collect(document)) << name;
    EXPECT_EQ(trianglesOf(mesh.mesh()), classicTriangles(examplePath(name), 100.0)) << name;
    BaseDocument::Free(document);
  }
}

TEST(MvrImportExamples, theGeneratorImportOfEveryExampleRenders) {
  CapturingConsole console;
  CapturingMessageHandler messages;
  for (const char* name : kExamples) {
    EXPECT_GT(convertedTriangles(examplePath(name), 100.0), 0u) << name;
  }
  // A leaf and a revolved vase are swept at the classic resolution: the same polygons.
  for (const char* name : {"leaf", "vase"}) {
    EXPECT_EQ(convertedTriangles(examplePath(name), 100.0),
              classicTriangles(examplePath(name), 100.0))
        << name;
  }
}

TEST(MvrImportExamples, aGeneratorDocumentSavesAndLoadsAsItWas) {
  CapturingConsole console;
  CapturingMessageHandler messages;
  BaseDocument* document = BaseDocument::Alloc();
  BaseContainer data;
  MvrLoader::initSettings(data);
  data.SetLong(MvrLoader::IdImportMode, MvrLoader::ModeGenerators);
  mv::ParameterSetData settings;
  MvrLoader::copySettings(data, settings);
  ASSERT_EQ(MvrLoader::importGenerators(Filename(examplePath("oak")), document, SCENEFILTER_OBJECTS,
                                        data, settings),
            FILEERROR_NONE);
  const std::string path = testOutputPath("import-oak-round-trip.morvo");
  ASSERT_TRUE(DocumentFile::Save(document, Filename(path)));
  BaseDocument* loaded = DocumentFile::Load(Filename(path));
  ASSERT_TRUE(loaded);
  // Objects, names, containers, curves and links come back as they were written.
  EXPECT_EQ(DocumentFile::ToText(loaded), DocumentFile::ToText(document));
  DocumentMesh mesh;
  ASSERT_TRUE(mesh.collect(loaded));
  EXPECT_GT(trianglesOf(mesh.mesh()), 1000u);
  BaseDocument::Free(loaded);
  BaseDocument::Free(document);
}

TEST(MvrImportExamples, mutatedScenesImportWithoutHarm) {
  CapturingConsole console;
  CapturingMessageHandler messages;
  std::mt19937 random(19650218);
  int imported = 0;
  for (const char* name : kExamples) {
    std::ifstream file(examplePath(name), std::ios::binary);
    const std::string original((std::istreambuf_iterator<char>(file)),
                               std::istreambuf_iterator<char>());
    for (int i = 0; i < 20; ++i) {
      const std::string path = testOutputPath("import-mutated.mvr");
      std::ofstream(path, std::ios::binary) << mutateScene(original, random);
      BaseDocument* document = BaseDocument::Alloc();
      BaseContainer data;
      MvrLoader::initSettings(data);
      mv::ParameterSetData settings;
      MvrLoader::copySettings(data, settings);
      const Int32 result = MvrLoader::importGenerators(
          Filename(path), document, SCENEFILTER_OBJECTS | SCENEFILTER_MATERIALS, data, settings);
      // Either a file error, or a document that holds the scene.
      EXPECT_TRUE(result == FILEERROR_NONE || result == FILEERROR_WRONG_VALUE);
      if (result == FILEERROR_NONE) {
        EXPECT_TRUE(document->GetFirstObject());
        ++imported;
      }
      BaseDocument::Free(document);
    }
  }
  // Most small edits leave a scene that imports: the format has no syntax errors.
  EXPECT_GT(imported, 100);
}
