#include <gtest/gtest.h>
#include <tiny_obj_loader.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "ExportSamples.h"
#include "export/FileAxes.h"
#include "export/ObjWriter.h"
#include "support/CapturingMessageHandler.h"
#include "support/GeometryExpectations.h"
#include "support/TestOutput.h"

namespace {

struct ObjFile {
  tinyobj::attrib_t attrib;
  std::vector<tinyobj::shape_t> shapes;
  std::vector<tinyobj::material_t> materials;
};

ObjFile readObj(const std::string& path) {
  ObjFile file;
  std::string warn, err;
  const std::string directory = std::filesystem::path(path).parent_path().string() + "/";
  EXPECT_TRUE(tinyobj::LoadObj(&file.attrib, &file.shapes, &file.materials, &warn, &err,
                               path.c_str(), directory.c_str(), false))
      << err;
  EXPECT_EQ(warn, "");
  return file;
}

std::string contents(const std::string& path) {
  std::ifstream in(path);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// Files in the output directory whose names start with prefix.
size_t filesStartingWith(const std::string& prefix) {
  const std::filesystem::path directory =
      std::filesystem::path(testOutputPath(prefix)).parent_path();
  return std::count_if(std::filesystem::directory_iterator(directory), {},
                       [&prefix](const std::filesystem::directory_entry& entry) {
                         return entry.path().filename().string().rfind(prefix, 0) == 0;
                       });
}

}  // namespace

TEST(ObjWriter, roundTripKeepsPointsCornersTexturesAndGroups) {
  const mv::MeshData mesh = sampleMesh();
  const std::string path = testOutputPath("sample.obj");
  ASSERT_TRUE(mv::ObjWriter(sampleMaterials()).write(mesh, path));
  writeSampleTexture(testOutputPath("bark.png"));
  const ObjFile file = readObj(path);

  ASSERT_EQ(file.attrib.vertices.size(), 3 * mesh.points.size());
  for (size_t k = 0; k < mesh.points.size(); ++k) {
    const mv::Vector3 p(file.attrib.vertices[3 * k], file.attrib.vertices[3 * k + 1],
                        file.attrib.vertices[3 * k + 2]);
    expectNear(mv::FileAxes::toLibrary(p), mesh.points[k], 1e-15);  // the reader rounds
  }

  // Faces come grouped by material, in the mesh's order within each group.
  std::vector<uint32_t> order(mesh.polygons.size());
  for (uint32_t k = 0; k < order.size(); ++k) order[k] = k;
  std::stable_sort(order.begin(), order.end(), [&mesh](uint32_t l, uint32_t r) {
    return mesh.polygons[l].material < mesh.polygons[r].material;
  });
  std::vector<std::string> shapeNames;
  size_t next = 0;
  for (const tinyobj::shape_t& shape : file.shapes) {
    shapeNames.push_back(shape.name);
    size_t corner = 0;
    for (size_t f = 0; f < shape.mesh.num_face_vertices.size(); ++f, ++next) {
      const mv::MeshPolygon& polygon = mesh.polygons[order[next]];
      const mv::TexturePolygon& uv = mesh.texturePolygons[order[next]];
      const uint32_t corners[4] = {polygon.a, polygon.b, polygon.c, polygon.d};
      const mv::Vector3 uvs[4] = {uv.a, uv.b, uv.c, uv.d};
      ASSERT_EQ(shape.mesh.num_face_vertices[f], polygon.isTriangle() ? 3u : 4u);
      for (int k = 0; k < shape.mesh.num_face_vertices[f]; ++k, ++corner) {
        const tinyobj::index_t index = shape.mesh.indices[corner];
        EXPECT_EQ(index.vertex_index, static_cast<int>(corners[k]));
        EXPECT_NEAR(file.attrib.texcoords[2 * index.texcoord_index], uvs[k].x, 1e-15);
        EXPECT_NEAR(file.attrib.texcoords[2 * index.texcoord_index + 1], 1.0 - uvs[k].y, 1e-15);
      }
      const int material = shape.mesh.material_ids[f];
      const std::string expected = polygon.material == 0   ? "bark"
                                   : polygon.material == 1 ? "leaf_green"
                                                           : "default";
      EXPECT_EQ(file.materials[static_cast<size_t>(material)].name, expected);
    }
  }
  EXPECT_EQ(next, mesh.polygons.size());
  EXPECT_EQ(shapeNames, (std::vector<std::string>{"default", "bark", "leaf_green C1"}));
  ASSERT_EQ(file.materials.size(), 3u);
  const tinyobj::material_t& bark = file.materials[1];
  EXPECT_EQ(bark.diffuse_texname, "bark.png");
  EXPECT_NEAR(bark.diffuse[0], 0.4, 1e-6);
  EXPECT_NEAR(bark.diffuse[2], 0.2, 1e-6);
}

TEST(ObjWriter, materialLibraryLiesBesideTheObjFile) {
  EXPECT_EQ(mv::ObjWriter::materialLibraryPath("out/plant.obj"), "out/plant.mtl");
  EXPECT_EQ(mv::ObjWriter::materialLibraryPath("out.d/plant"), "out.d/plant.mtl");
}

TEST(ObjWriter, failedWriteLeavesNoFileAndKeepsTheEarlierOne) {
  CapturingMessageHandler capture;
  EXPECT_FALSE(mv::ObjWriter().write(sampleMesh(), "/nonexistent-directory/plant.obj"));
  ASSERT_EQ(capture.errors.size(), 1u);
  EXPECT_EQ(capture.errors[0], "Cannot write /nonexistent-directory/plant.mtl");

  const std::string path = testOutputPath("kept.obj");
  ASSERT_TRUE(mv::ObjWriter().write(sampleMesh(), path));
  const std::string before = contents(path);
  mv::MeshData broken = sampleMesh();
  broken.polygons[2].c = 100000;
  EXPECT_FALSE(mv::ObjWriter().write(broken, path));
  EXPECT_EQ(capture.errors.back(), "OBJ: a polygon names a point that does not exist");
  broken.points[0].x = std::nan("");
  broken.polygons[2].c = 0;
  EXPECT_FALSE(mv::ObjWriter().write(broken, path));
  EXPECT_EQ(contents(path), before);
  EXPECT_EQ(filesStartingWith("kept."), 2u);  // kept.obj and kept.mtl, no temporary left
}

TEST(ObjWriter, everyCoordinateReadsBackToTheSameDouble) {
  mv::MeshData mesh = sampleMesh();
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> mantissa(-1.0, 1.0);
  std::uniform_int_distribution<int> exponent(-40, 40);
  for (mv::Vector3& p : mesh.points) {
    const auto number = [&] { return std::ldexp(mantissa(random), exponent(random)); };
    p = {number(), number(), number()};
  }
  mesh.points[0] = {0.1, 1e-300, -0.0};
  mesh.points[1] = {1.0 / 3.0, 2.0 / 3.0, 123456789.123456789};
  const std::string path = testOutputPath("round-trip.obj");
  ASSERT_TRUE(mv::ObjWriter().write(mesh, path));
  std::istringstream lines(contents(path));
  std::string line;
  size_t point = 0;
  while (std::getline(lines, line)) {
    if (line.rfind("v ", 0) != 0) continue;
    const char* at = line.c_str() + 1;
    char* end = nullptr;
    mv::Vector3 read;
    for (double* value : {&read.x, &read.y, &read.z}) {
      *value = std::strtod(at, &end);
      at = end;
    }
    const mv::Vector3 expected = mv::FileAxes::fromLibrary(mesh.points.at(point++));
    EXPECT_EQ(read.x, expected.x) << line;
    EXPECT_EQ(read.y, expected.y) << line;
    EXPECT_EQ(read.z, expected.z) << line;
  }
  EXPECT_EQ(point, mesh.points.size());
  EXPECT_NE(contents(path).find("v 0.1 -0 -1e-300\n"), std::string::npos);  // shortest forms
}

// The unit cube turned inside-out: the file turns it back, and its flat faces carry the normals
// of their planes.
TEST(ObjWriter, insideOutCubeIsWrittenOutwardWithFlatNormals) {
  mv::MeshData mesh;
  for (int k = 0; k < 8; ++k) mesh.points.emplace_back(k & 1, (k >> 1) & 1, (k >> 2) & 1);
  mesh.polygons = {{0, 1, 3, 2, 0}, {4, 6, 7, 5, 0}, {0, 4, 5, 1, 0},
                   {2, 3, 7, 6, 0}, {0, 2, 6, 4, 0}, {1, 5, 7, 3, 0}};
  mesh.texturePolygons.resize(6);
  const std::string path = testOutputPath("inside-out-cube.obj");
  ASSERT_TRUE(mv::ObjWriter().write(mesh, path));
  const ObjFile file = readObj(path);
  ASSERT_EQ(file.shapes.size(), 1u);
  const tinyobj::mesh_t& faces = file.shapes[0].mesh;
  ASSERT_EQ(faces.num_face_vertices.size(), 6u);
  double volume6 = 0.0;
  for (size_t f = 0; f < 6; ++f) {
    mv::Vector3 corner[4], normal[4];
    for (int k = 0; k < 4; ++k) {
      const tinyobj::index_t index = faces.indices[4 * f + size_t(k)];
      for (int c = 0; c < 3; ++c) {
        (&corner[k].x)[c] = file.attrib.vertices[3 * size_t(index.vertex_index) + size_t(c)];
        (&normal[k].x)[c] = file.attrib.normals[3 * size_t(index.normal_index) + size_t(c)];
      }
    }
    volume6 +=
        corner[0].dot(corner[1].cross(corner[2])) + corner[0].dot(corner[2].cross(corner[3]));
    const mv::Vector3 faceNormal = (corner[1] - corner[0]).cross(corner[2] - corner[0]);
    for (int k = 0; k < 4; ++k) expectNear(normal[k], faceNormal.normalized(), 1e-7);
  }
  EXPECT_NEAR(volume6, 6.0, 1e-12);
  const std::string text = contents(path);
  EXPECT_NE(text.find("\ns off\nf "), std::string::npos);
  EXPECT_EQ(text.find("s 1"), std::string::npos);
}

TEST(ObjWriter, lineStripsFollowTheFacesAsLLinesOfTheirMaterial) {
  mv::LineStrips lines;
  lines.add({{0, 0, 0}, {0, 0, 1}, {0.5, 0, 2}});
  lines.add({{4, 4, 4}});
  lines.add({{1, 2, 0}, {1, 3, 1.5}});
  const mv::MeshData mesh = sampleMesh();
  const std::string path = testOutputPath("strips.obj");
  std::vector<mv::ExportMaterial> materials(3);
  materials[2].name = "grass";
  ASSERT_TRUE(mv::ObjWriter(materials).write(mesh, lines, 2, path));
  const ObjFile file = readObj(path);
  const size_t first = mesh.points.size();
  ASSERT_EQ(file.attrib.vertices.size(), 3 * (first + lines.points.size()));
  for (size_t k = 0; k < lines.points.size(); ++k) {
    const size_t v = 3 * (first + k);
    const mv::Vector3 p(file.attrib.vertices[v], file.attrib.vertices[v + 1],
                        file.attrib.vertices[v + 2]);
    expectNear(mv::FileAxes::toLibrary(p), lines.points[k], 1e-15);
  }
  const tinyobj::shape_t& shape = file.shapes.back();
  EXPECT_EQ(shape.name, "lines");
  EXPECT_EQ(shape.lines.num_line_vertices, (std::vector<int>{3, 2}));
  std::vector<int> indices;
  for (const tinyobj::index_t& index : shape.lines.indices) indices.push_back(index.vertex_index);
  const int f = int(first);
  EXPECT_EQ(indices, (std::vector<int>{f, f + 1, f + 2, f + 4, f + 5}));
  EXPECT_NE(contents(mv::ObjWriter::materialLibraryPath(path)).find("newmtl grass"),
            std::string::npos);
}
