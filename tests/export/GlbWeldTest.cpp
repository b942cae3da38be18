// The glTF writer's vertices against a straightforward reference: a map from (point, normal,
// texture coordinate) to the first index, filled corner by corner in the order the writer
// promises.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <map>
#include <random>
#include <tuple>

#include "GlbReading.h"
#include "export/CornerNormals.h"
#include "export/FileAxes.h"
#include "export/GlbWriter.h"
#include "export/ShellOrientation.h"
#include "support/TestOutput.h"

namespace {

// Quads and triangles over a small grid of points, so that corners share points, with texture
// coordinates from a few values, in two materials.
mv::MeshData randomMesh(unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> coordinate(0, 3), corner(0, 26), coin(0, 1), uv(0, 2);
  mv::MeshData mesh;
  for (int k = 0; k < 27; ++k)
    mesh.points.emplace_back(k % 3, (k / 3) % 3, k / 9 + 0.25 * coin(random));
  for (int n = 0; n < 400; ++n) {
    std::array<uint32_t, 4> c;
    for (uint32_t& v : c) v = uint32_t(corner(random));
    if (c[0] == c[1] || c[1] == c[2] || c[0] == c[2] || c[3] == c[0] || c[3] == c[1]) continue;
    if (coin(random)) c[3] = c[2];
    mesh.polygons.push_back({c[0], c[1], c[2], c[3], coin(random)});
    const auto at = [&] { return mv::Vector3(0.5 * uv(random), 0.5 * uv(random), 0); };
    mesh.texturePolygons.push_back({at(), at(), at(), at()});
  }
  return mesh;
}

struct Reference {
  std::vector<std::array<float, 8>> vertices;  // position, normal, texture coordinate
  std::vector<uint32_t> indices;
};

std::array<float, 8> cornerVertex(const mv::MeshData& mesh, const mv::CornerNormals& normals,
                                  bool reversed, uint32_t i, int k) {
  const mv::MeshPolygon& p = mesh.polygons[i];
  const uint32_t points[4] = {p.a, p.b, p.c, p.d};
  const mv::TexturePolygon& t = mesh.texturePolygons[i];
  const mv::Vector3 uvs[4] = {t.a, t.b, t.c, t.d};
  const mv::Vector3 position = mv::FileAxes::fromLibrary(mesh.points[points[k]]);
  const mv::Vector3 normal = mv::FileAxes::fromLibrary(normals.at(i, k) * (reversed ? -1 : 1));
  return {float(position.x), float(position.y), float(position.z), float(normal.x),
          float(normal.y),   float(normal.z),   float(uvs[k].x),   float(uvs[k].y)};
}

Reference referenceWeld(const mv::MeshData& mesh, int material) {
  const mv::CornerNormals normals(mesh, mv::GlbWriter::kDefaultCreaseAngle);
  const mv::ShellOrientation shells(mesh);
  Reference result;
  std::map<std::tuple<uint32_t, std::array<uint32_t, 5>>, uint32_t> seen;
  const auto add = [&](uint32_t i, int k) {
    const std::array<float, 8> vertex = cornerVertex(mesh, normals, shells.reversed(i), i, k);
    const uint32_t points[4] = {mesh.polygons[i].a, mesh.polygons[i].b, mesh.polygons[i].c,
                                mesh.polygons[i].d};
    std::array<uint32_t, 5> bits;
    std::memcpy(bits.data(), vertex.data() + 3, sizeof bits);
    const auto [found, added] = seen.emplace(std::make_tuple(points[k], bits), seen.size());
    if (added) result.vertices.push_back(vertex);
    result.indices.push_back(found->second);
  };
  for (uint32_t i = 0; i < mesh.polygons.size(); ++i) {
    if (mesh.polygons[i].material != material) continue;
    const bool reversed = shells.reversed(i);
    std::vector<int> order = {0, 1, 2, 0, 2, 3};
    if (mesh.polygons[i].isTriangle()) order = {0, 1, 2};
    if (reversed)
      order = mesh.polygons[i].isTriangle() ? std::vector<int>{0, 2, 1}
                                            : std::vector<int>{0, 3, 2, 0, 2, 1};
    for (int k : order) add(i, k);
  }
  return result;
}

}  // namespace

TEST(GlbWeld, verticesAndIndicesEqualAStraightforwardWeld) {
  for (unsigned seed = 1; seed <= 5; ++seed) {
    const mv::MeshData mesh = randomMesh(seed);
    const std::string path = testOutputPath("weld-" + std::to_string(seed) + ".glb");
    ASSERT_TRUE(mv::GlbWriter().write(mesh, path));
    const tinygltf::Model model = readGlb(path);
    ASSERT_EQ(model.meshes.at(0).primitives.size(), 2u);
    for (int material : {0, 1}) {
      const Reference expected = referenceWeld(mesh, material);
      const tinygltf::Primitive& primitive = model.meshes[0].primitives[size_t(material)];
      const std::vector<double> positions =
          accessorValues(model, primitive.attributes.at("POSITION"));
      const std::vector<double> normals = accessorValues(model, primitive.attributes.at("NORMAL"));
      const std::vector<double> uvs = accessorValues(model, primitive.attributes.at("TEXCOORD_0"));
      ASSERT_EQ(positions.size(), 3 * expected.vertices.size()) << "seed " << seed;
      for (size_t v = 0; v < expected.vertices.size(); ++v) {
        const std::array<float, 8>& e = expected.vertices[v];
        const std::array<double, 8> actual = {
            positions[3 * v],   positions[3 * v + 1], positions[3 * v + 2], normals[3 * v],
            normals[3 * v + 1], normals[3 * v + 2],   uvs[2 * v],           uvs[2 * v + 1]};
        for (int k = 0; k < 8; ++k) ASSERT_EQ(actual[k], double(e[k])) << "vertex " << v;
      }
      const std::vector<double> indices = accessorValues(model, primitive.indices);
      EXPECT_EQ(std::vector<uint32_t>(indices.begin(), indices.end()), expected.indices);
    }
  }
}
