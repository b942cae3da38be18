// Reading back the .glb files the writer tests write: accessors as doubles, primitives as
// triangle soups.
#pragma once

#include <gtest/gtest.h>
#include <tiny_gltf.h>

#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "core/Vector3.h"

inline tinygltf::Model readGlb(const std::string& path) {
  tinygltf::Model model;
  tinygltf::TinyGLTF loader;
  std::string err, warn;
  EXPECT_TRUE(loader.LoadBinaryFromFile(&model, &err, &warn, path)) << path << ": " << err;
  return model;
}

// The values of an accessor as doubles, whatever its component type; tightly packed views only.
inline std::vector<double> accessorValues(const tinygltf::Model& model, int index) {
  const tinygltf::Accessor& accessor = model.accessors[static_cast<size_t>(index)];
  const tinygltf::BufferView& view = model.bufferViews[static_cast<size_t>(accessor.bufferView)];
  const unsigned char* data = model.buffers[static_cast<size_t>(view.buffer)].data.data() +
                              view.byteOffset + accessor.byteOffset;
  const size_t count =
      accessor.count * static_cast<size_t>(tinygltf::GetNumComponentsInType(accessor.type));
  std::vector<double> values(count);
  for (size_t k = 0; k < count; ++k) {
    if (accessor.componentType == TINYGLTF_COMPONENT_TYPE_FLOAT) {
      float value;
      std::memcpy(&value, data + 4 * k, 4);
      values[k] = value;
    } else if (accessor.componentType == TINYGLTF_COMPONENT_TYPE_UNSIGNED_INT) {
      uint32_t value;
      std::memcpy(&value, data + 4 * k, 4);
      values[k] = value;
    } else {
      uint16_t value;
      std::memcpy(&value, data + 2 * k, 2);
      values[k] = value;
    }
  }
  return values;
}

inline mv::Vector3 at(const std::vector<double>& values, size_t vertex) {
  return {values[3 * vertex], values[3 * vertex + 1], values[3 * vertex + 2]};
}

// All triangle primitives of the model's meshes as one soup of positions and triangles.
struct TriangleSoup {
  std::vector<mv::Vector3> positions;
  std::vector<std::array<uint32_t, 3>> triangles;
};

inline TriangleSoup triangleSoup(const tinygltf::Model& model) {
  TriangleSoup soup;
  for (const tinygltf::Mesh& mesh : model.meshes) {
    for (const tinygltf::Primitive& primitive : mesh.primitives) {
      if (primitive.mode != TINYGLTF_MODE_TRIANGLES) continue;  // lines hold no triangles
      const uint32_t first = uint32_t(soup.positions.size());
      const std::vector<double> p = accessorValues(model, primitive.attributes.at("POSITION"));
      for (size_t v = 0; v < p.size() / 3; ++v) soup.positions.push_back(at(p, v));
      const std::vector<double> indices = accessorValues(model, primitive.indices);
      for (size_t t = 0; t + 2 < indices.size(); t += 3) {
        soup.triangles.push_back({first + uint32_t(indices[t]), first + uint32_t(indices[t + 1]),
                                  first + uint32_t(indices[t + 2])});
      }
    }
  }
  return soup;
}
