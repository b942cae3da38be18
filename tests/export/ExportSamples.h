// Meshes that the writer tests export, built through the polygon stream as generators build them.
#pragma once

#include <cmath>
#include <fstream>
#include <string>
#include <vector>

#include "export/ExportMaterial.h"
#include "geometry/GeomPrimitiveWriter.h"
#include "geometry/MeshData.h"
#include "geometry/OPolygonStream.h"

// An outward-facing closed tube around +z (material 0), a concave outline in selection "C1"
// (material 1) and a quad mesh with one triangle (no material).
inline mv::MeshData sampleMesh() {
  mv::MeshData mesh;
  mv::OPolygonStream s(&mesh, true);
  const int nu = 13, nv = 4;
  std::vector<mv::Vector3> tube;
  for (int j = 0; j < nv; ++j) {
    for (int i = 0; i < nu; ++i) {
      const double angle = -2.0 * M_PI * i / (nu - 1);
      tube.emplace_back(std::cos(angle), std::sin(angle), 0.5 * j);
    }
  }
  s << mv::CmdGroupBegin << mv::CmdMaterialIndex << 0;
  mv::GeomPrimitiveWriter::writePatch(s, nu, nv, tube);
  s << mv::CmdGroupEnd << mv::CmdGroupBegin << mv::CmdMaterialIndex << 1 << mv::CmdAttribute;
  s.param(mv::ParamSelection) << std::string("C1");
  mv::GeomPrimitiveWriter::writeOutline(s, {{3, 0, 0}, {5, 1, 0}, {3, 2, 0}, {3.5, 1, 0}},
                                        {0, 0, 1, 0.5, 0, 1, 0.25, 0.5});
  s << mv::CmdGroupEnd;
  mv::GeomPrimitiveWriter::writeQuadMesh(
      s, {0, 1, 4, 3, 1, 2, 5, 4, 3, 4, 6, 6},
      {{0, 3, 0}, {1, 3, 0}, {2, 3, 0}, {0, 4, 0}, {1, 4, 0}, {2, 4, 0}, {0, 5, 0}},
      {0, 0,   0.5, 0,   0.5, 0.5, 0,   0.5, 0.5, 0, 1, 0,
       1, 0.5, 0.5, 0.5, 0,   0.5, 0.5, 0.5, 0,   1, 0, 1});
  s.flush();
  return mesh;
}

// Writes the image that the sample materials reference, a bark-brown pixel in PNG, so that
// validators can follow the reference.
inline void writeSampleTexture(const std::string& path) {
  static const unsigned char png[] = {
      0x89, 0x50, 0x4e, 0x47, 0x0d, 0x0a, 0x1a, 0x0a, 0x00, 0x00, 0x00, 0x0d, 0x49, 0x48,
      0x44, 0x52, 0x00, 0x00, 0x00, 0x01, 0x00, 0x00, 0x00, 0x01, 0x08, 0x02, 0x00, 0x00,
      0x00, 0x90, 0x77, 0x53, 0xde, 0x00, 0x00, 0x00, 0x0c, 0x49, 0x44, 0x41, 0x54, 0x78,
      0x9c, 0x63, 0x48, 0xf3, 0x35, 0x06, 0x00, 0x02, 0x03, 0x00, 0xe7, 0x2f, 0xaa, 0x17,
      0xb2, 0x00, 0x00, 0x00, 0x00, 0x49, 0x45, 0x4e, 0x44, 0xae, 0x42, 0x60, 0x82};
  std::ofstream(path, std::ios::binary).write(reinterpret_cast<const char*>(png), sizeof png);
}

inline std::vector<mv::ExportMaterial> sampleMaterials() {
  return {{"bark", 0.4, 0.3, 0.2, "bark.png"}, {"leaf green", 0.1, 0.6, 0.1, ""}};
}

// Twice the area of a polygon of the mesh, its quads taken as two triangles a-b-c and a-c-d.
inline double twiceArea(const mv::MeshData& mesh, const mv::MeshPolygon& p) {
  const auto triangle = [&mesh](uint32_t a, uint32_t b, uint32_t c) {
    return (mesh.points[b] - mesh.points[a]).cross(mesh.points[c] - mesh.points[a]).length();
  };
  return triangle(p.a, p.b, p.c) + (p.isTriangle() ? 0.0 : triangle(p.a, p.c, p.d));
}
