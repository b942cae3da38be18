#include "commands/SurfaceFile.h"

#include <tiny_gltf.h>
#include <tiny_obj_loader.h>

#include <array>
#include <cstring>
#include <functional>

#include "core/Matrix4.h"
#include "core/MessageSink.h"
#include "export/FileAxes.h"

namespace SurfaceFile {

namespace {

bool endsWith(const std::string& text, const std::string& suffix) {
  return text.size() >= suffix.size() &&
         text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

// Adds a polygon of any corner count: as it is up to four corners, fanned beyond.
void addPolygon(mv::MeshData& mesh, const std::vector<uint32_t>& corners) {
  if (corners.size() < 3) return;
  if (corners.size() <= 4) {
    const uint32_t last = corners.back();
    mesh.polygons.push_back({corners[0], corners[1], corners[2], last, -1});
    return;
  }
  for (size_t k = 1; k + 1 < corners.size(); ++k) {
    mesh.polygons.push_back({corners[0], corners[k], corners[k + 1], corners[k + 1], -1});
  }
}

bool readObj(const std::string& path, mv::MeshData& mesh) {
  tinyobj::attrib_t attrib;
  std::vector<tinyobj::shape_t> shapes;
  std::vector<tinyobj::material_t> materials;
  std::string warn, err;
  if (!tinyobj::LoadObj(&attrib, &shapes, &materials, &warn, &err, path.c_str(), nullptr, false)) {
    mv::messageSink.error("Cannot read " + path + ": " + err);
    return false;
  }
  for (size_t k = 0; k + 2 < attrib.vertices.size(); k += 3) {
    mesh.points.push_back(mv::FileAxes::toLibrary(
        {attrib.vertices[k], attrib.vertices[k + 1], attrib.vertices[k + 2]}));
  }
  for (const tinyobj::shape_t& shape : shapes) {
    size_t corner = 0;
    for (unsigned char count : shape.mesh.num_face_vertices) {
      std::vector<uint32_t> corners;
      bool inside = true;
      for (size_t k = 0; k < count; ++k, ++corner) {
        const int index = shape.mesh.indices[corner].vertex_index;
        inside = inside && index >= 0 && size_t(index) < mesh.points.size();
        corners.push_back(uint32_t(index));
      }
      if (inside) addPolygon(mesh, corners);
    }
  }
  return true;
}

// The node's own transform as a row-vector matrix: scale, then rotation, then translation.
mv::Matrix4 nodeMatrix(const tinygltf::Node& node) {
  mv::Matrix4 m;
  if (node.matrix.size() == 16) {
    for (int r = 0; r < 4; ++r) {
      for (int c = 0; c < 4; ++c) m.m[4 * r + c] = node.matrix[size_t(4 * r + c)];
    }
    return m;
  }
  const std::vector<double>& q =
      node.rotation.size() == 4 ? node.rotation : std::vector<double>{0, 0, 0, 1};
  const double x = q[0], y = q[1], z = q[2], w = q[3];
  const double rotation[9] = {
      1 - 2 * (y * y + z * z), 2 * (x * y + z * w),     2 * (x * z - y * w),
      2 * (x * y - z * w),     1 - 2 * (x * x + z * z), 2 * (y * z + x * w),
      2 * (x * z + y * w),     2 * (y * z - x * w),     1 - 2 * (x * x + y * y)};
  for (int r = 0; r < 3; ++r) {
    const double s = node.scale.size() == 3 ? node.scale[size_t(r)] : 1.0;
    for (int c = 0; c < 3; ++c) m.m[4 * r + c] = s * rotation[3 * r + c];
    m.m[12 + r] = node.translation.size() == 3 ? node.translation[size_t(r)] : 0.0;
  }
  return m;
}

// The float positions or integer indices of an accessor; empty when it is not tightly readable.
template <typename Read>
bool forEachElement(const tinygltf::Model& model, int index, size_t components, Read read) {
  if (index < 0 || size_t(index) >= model.accessors.size()) return false;
  const tinygltf::Accessor& accessor = model.accessors[size_t(index)];
  if (accessor.bufferView < 0 || size_t(accessor.bufferView) >= model.bufferViews.size()) {
    return false;
  }
  const tinygltf::BufferView& view = model.bufferViews[size_t(accessor.bufferView)];
  if (view.buffer < 0 || size_t(view.buffer) >= model.buffers.size()) return false;
  const std::vector<unsigned char>& data = model.buffers[size_t(view.buffer)].data;
  const size_t size = size_t(tinygltf::GetComponentSizeInBytes(accessor.componentType));
  const size_t stride = view.byteStride != 0 ? view.byteStride : size * components;
  const size_t start = view.byteOffset + accessor.byteOffset;
  if (accessor.count == 0) return true;
  if (start + stride * (accessor.count - 1) + size * components > data.size()) return false;
  for (size_t k = 0; k < accessor.count; ++k) read(data.data() + start + stride * k, size);
  return true;
}

uint32_t readIndex(const unsigned char* bytes, size_t size) {
  uint32_t value = 0;
  if (size == 1) value = bytes[0];
  if (size == 2) value = uint32_t(bytes[0]) | uint32_t(bytes[1]) << 8;
  if (size == 4) std::memcpy(&value, bytes, 4);
  return value;
}

// One triangle primitive placed by the world matrix; false when its data is broken.
bool addPrimitive(const tinygltf::Model& model, const tinygltf::Primitive& primitive,
                  const mv::Matrix4& world, mv::MeshData& mesh) {
  const auto position = primitive.attributes.find("POSITION");
  if (position == primitive.attributes.end()) return false;
  const uint32_t first = uint32_t(mesh.points.size());
  const bool positionsRead =
      model.accessors.size() > size_t(std::max(position->second, 0)) &&
      model.accessors[size_t(position->second)].componentType == TINYGLTF_COMPONENT_TYPE_FLOAT &&
      forEachElement(model, position->second, 3, [&](const unsigned char* bytes, size_t) {
        float v[3];
        std::memcpy(v, bytes, sizeof v);
        mesh.points.push_back(mv::FileAxes::toLibrary(world.transformPoint({v[0], v[1], v[2]})));
      });
  if (!positionsRead) return false;
  const uint32_t count = uint32_t(mesh.points.size()) - first;
  std::vector<uint32_t> indices;
  if (primitive.indices < 0) {
    for (uint32_t k = 0; k < count; ++k) indices.push_back(k);
  } else if (!forEachElement(model, primitive.indices, 1,
                             [&](const unsigned char* bytes, size_t size) {
                               indices.push_back(readIndex(bytes, size));
                             })) {
    return false;
  }
  for (size_t k = 0; k + 2 < indices.size(); k += 3) {
    if (indices[k] >= count || indices[k + 1] >= count || indices[k + 2] >= count) return false;
    addPolygon(mesh, {first + indices[k], first + indices[k + 1], first + indices[k + 2]});
  }
  return true;
}

bool readGltf(const std::string& path, mv::MeshData& mesh) {
  tinygltf::Model model;
  tinygltf::TinyGLTF loader;
  std::string err, warn;
  const bool loaded = endsWith(path, ".glb") ? loader.LoadBinaryFromFile(&model, &err, &warn, path)
                                             : loader.LoadASCIIFromFile(&model, &err, &warn, path);
  if (!loaded) {
    mv::messageSink.error("Cannot read " + path + ": " + err);
    return false;
  }
  bool intact = true;
  // Nodes below a node take its transform; a node seen twice (a cycle) is not walked again.
  std::vector<bool> seen(model.nodes.size(), false);
  std::function<void(int, const mv::Matrix4&)> walk = [&](int index, const mv::Matrix4& parent) {
    if (index < 0 || size_t(index) >= model.nodes.size() || seen[size_t(index)]) return;
    seen[size_t(index)] = true;
    const tinygltf::Node& node = model.nodes[size_t(index)];
    const mv::Matrix4 world = nodeMatrix(node) * parent;
    if (node.mesh >= 0 && size_t(node.mesh) < model.meshes.size()) {
      for (const tinygltf::Primitive& primitive : model.meshes[size_t(node.mesh)].primitives) {
        if (primitive.mode == TINYGLTF_MODE_TRIANGLES || primitive.mode == -1) {
          intact = addPrimitive(model, primitive, world, mesh) && intact;
        }
      }
    }
    for (int child : node.children) walk(child, world);
  };
  const int scene = model.defaultScene >= 0 ? model.defaultScene : 0;
  if (size_t(scene) < model.scenes.size()) {
    for (int node : model.scenes[size_t(scene)].nodes) walk(node, mv::Matrix4());
  }
  if (!intact) mv::messageSink.warning(path + ": broken primitives were left out");
  return true;
}

}  // namespace

bool read(const std::string& path, mv::MeshData& mesh) {
  mesh = mv::MeshData();
  bool readable = false;
  if (endsWith(path, ".obj")) {
    readable = readObj(path, mesh);
  } else if (endsWith(path, ".glb") || endsWith(path, ".gltf")) {
    readable = readGltf(path, mesh);
  } else {
    mv::messageSink.error("The surface must be an .obj, .glb or .gltf file: " + path);
    return false;
  }
  if (readable && mesh.polygons.empty()) {
    mv::messageSink.error(path + " holds no polygon to grow grass on");
    return false;
  }
  return readable;
}

}  // namespace SurfaceFile
