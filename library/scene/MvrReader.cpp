#include "scene/MvrReader.h"

#include <unordered_map>
#include <utility>
#include <vector>

#include "scene/Chunk.h"
#include "scene/MvrValue.h"

namespace mv {

namespace {

using V = MvrValue;

// Handlers of keyword lines, one table per block kind: the rest of the line, the type block's
// name (only the type table looks at it) and the record to fill.
template <typename Record>
using LineHandler = void (*)(const std::string& rest, const std::string& type, Record& record);
template <typename Record>
using LineTable = std::unordered_map<std::string, LineHandler<Record>>;

template <typename Record>
void readLines(const Chunk& block, const LineTable<Record>& table, const std::string& type,
               Record& record) {
  std::string rest;
  for (const std::string& line : block.lines) {
    const auto found = table.find(V::keyword(line, rest));
    if (found != table.end()) found->second(rest, type, record);
  }
}

bool isHornGroup(const std::string& type) {
  return type == "Horn" || type == "PhiBall" || type == "Hydra";
}

const LineTable<MvrComponent>& structLines() {
  using C = MvrComponent;
  static const LineTable<C> table{
      {"Name", [](const std::string& r, const std::string&, C& c) { c.name = V::text(r); }},
      {"Photo_Dir", [](const std::string& r, const std::string&, C& c) { c.photoDir = r; }},
      {"Photo_Mode", [](const std::string& r, const std::string&, C& c) { c.photoMode = r; }},
      {"Photo", [](const std::string& r, const std::string&, C& c) { c.photo = V::triple(r); }},
      {"Existence",
       [](const std::string& r, const std::string&, C& c) { V::range(r, c.existence); }},
      {"Hide", [](const std::string&, const std::string&, C& c) { c.hide = true; }},
      {"Reference", [](const std::string&, const std::string&, C& c) { c.reference = true; }},
  };
  return table;
}

const LineTable<MvrTransform>& transformLines() {
  using T = MvrTransform;
  static const LineTable<T> table{
      {"Scale",
       [](const std::string& r, const std::string&, T& t) { t.scale = V::limitedTriple(r); }},
      {"Rotation",
       [](const std::string& r, const std::string&, T& t) { t.rotation = V::limitedTriple(r); }},
      {"Translation",
       [](const std::string& r, const std::string&, T& t) { t.translation = V::limitedTriple(r); }},
  };
  return table;
}

const LineTable<MvrPrimitive>& primitiveLines() {
  using P = MvrPrimitive;
  using S = const std::string&;
  static const LineTable<P> table{
      {"Type", [](S r, S, P& p) { p.type = V::text(r); }},
      {"Points", [](S r, S, P& p) { p.points = V::real(r); }},
      {"Separator", [](S r, S, P& p) { p.separator = V::boolean(r); }},
      {"Deformable", [](S r, S, P& p) { p.deformable = V::boolean(r); }},
      {"Resolution", [](S r, S, P& p) { p.resolution = V::real(r); }},
      {"Displace", [](S r, S, P& p) { V::range(r, p.displace); }},
      {"TorusMinor", [](S r, S, P& p) { p.torusMinor = V::triple(r); }},
      {"Color", [](S r, S, P& p) { p.color = V::text(r); }},
      {"Texture", [](S r, S, P& p) { p.texture = V::text(r); }},
      {"Texture_File", [](S r, S, P& p) { p.textureFile = V::text(r); }},
      {"Texture_Handler", [](S r, S, P& p) { p.textureHandler = V::integer(r); }},
      {"Texture_Mode", [](S, S, P& p) { p.textureHandler = 0; }},
      {"Texture_ScaleS", [](S r, S, P& p) { p.textureScaleS = V::triple(r); }},
      {"Texture_ScaleT", [](S r, S, P& p) { p.textureScaleT = V::triple(r); }},
      {"Texture_ShiftS", [](S r, S, P& p) { p.textureShiftS = V::triple(r); }},
      {"Texture_ShiftT", [](S r, S, P& p) { p.textureShiftT = V::triple(r); }},
      {"Texture_Speed", [](S r, S, P& p) { p.textureSpeed = V::triple(r); }},
      {"Alpha", [](S r, S, P& p) { p.alpha = V::triple(r); }},
      {"Attractor_Center", [](S r, S, P& p) { p.attractorCenter = V::real(r); }},
      {"Attractor_Strength", [](S r, S, P& p) { p.attractorStrength = V::triple(r); }},
      {"Attractor_Mode", [](S r, S, P& p) { p.attractorMode = V::integer(r); }},
      {"Use_GFXColor", [](S, S, P& p) { p.useGfxColor = true; }},
      {"Flat", [](S, S, P& p) { p.flat = true; }},
      {"ApplyProfil3D", [](S, S, P& p) { p.applyProfil3D = true; }},
      {"ApplyProfil", [](S, S, P& p) { p.applyProfil = true; }},
  };
  return table;
}

MvrColor color(const std::string& rest) {
  const Vector3 value = V::plainTriple(rest);
  return {V::single(value.x), V::single(value.y), V::single(value.z)};
}

const LineTable<MvrPrimitive>& gfxColorLines() {
  using P = MvrPrimitive;
  using S = const std::string&;
  static const LineTable<P> table{
      {"AMBIENT", [](S r, S, P& p) { p.ambient = color(r); }},
      {"DIFFUSE", [](S r, S, P& p) { p.diffuse = color(r); }},
      {"SPECULAR", [](S r, S, P& p) { p.specular = color(r); }},
      {"EMISSION", [](S r, S, P& p) { p.emission = color(r); }},
      {"ALPHA", [](S r, S, P& p) { p.gfxAlpha = V::real(r); }},
  };
  return table;
}

// Segments: a Leaf writes the brace form, every other type one number for all three fields.
void readSegments(const std::string& rest, const std::string& type, MvrTypeData& data) {
  if (type == "Leaf") {
    data.segments = V::triple(rest);
  } else {
    const double value = V::real(rest);
    data.segments = {value, value, value};
  }
}

// Scale: a Range in the Horn group, three brace groups elsewhere.
void readScale(const std::string& rest, const std::string& type, MvrTypeData& data) {
  if (isHornGroup(type))
    V::range(rest, data.scaleRange);
  else
    data.scaleRows = V::limitedTriple(rest);
}

const LineTable<MvrTypeData>& typeLines() {
  using D = MvrTypeData;
  using S = const std::string&;
  static const LineTable<D> table{
      {"Segments", readSegments},
      {"Top", [](S r, S, D& d) { d.top = V::boolean(r); }},
      {"Scale", readScale},
      {"Shape",
       [](S r, S t, D& d) {
         if (t != "Tree") V::range(r, d.shape);
       }},
      {"Dense",
       [](S r, S t, D& d) {
         if (t != "Tree") V::range(r, d.dense);
       }},
      {"Steps", [](S r, S, D& d) { V::range(r, d.steps); }},
      {"Flap", [](S r, S, D& d) { V::range(r, d.flap); }},
      {"Screw", [](S r, S, D& d) { V::range(r, d.screw); }},
      {"RotX", [](S r, S, D& d) { V::range(r, d.rotX); }},
      {"RotY", [](S r, S, D& d) { V::range(r, d.rotY); }},
      {"RotZ", [](S r, S, D& d) { V::range(r, d.rotZ); }},
      {"TrX", [](S r, S, D& d) { V::range(r, d.trX); }},
      {"TrY", [](S r, S, D& d) { V::range(r, d.trY); }},
      {"TrZ", [](S r, S, D& d) { V::range(r, d.trZ); }},
      {"Smooth", [](S, S, D& d) { d.smooth = true; }},
      {"Characteristic", [](S r, S, D& d) { d.characteristic = V::integer(r); }},
      {"ApplyShape", [](S, S, D& d) { d.applyShape = true; }},
      {"MoveScale", [](S r, S, D& d) { d.moveScale = V::real(r); }},
      {"Length", [](S r, S, D& d) { d.length = V::triple(r); }},
      {"Len", [](S r, S, D& d) { d.length = V::triple(r); }},
      {"Spline", [](S, S, D& d) { d.spline = true; }},
      {"Pairs", [](S r, S, D& d) { d.pairs = V::integer(r); }},
      {"Branch_Num", [](S r, S, D& d) { d.branchNum = V::triple(r); }},
      {"KruschtlKnots", [](S r, S, D& d) { d.kruschtlKnots = V::triple(r); }},
      {"IniScale", [](S r, S, D& d) { d.iniScale = V::triple(r); }},
      {"Version", [](S r, S, D& d) { d.version = V::integer(r); }},
      {"Number", [](S r, S, D& d) { d.number = V::triple(r); }},
      {"Radius", [](S r, S, D& d) { d.radius = V::triple(r); }},
      {"Influence", [](S r, S, D& d) { d.influence = V::triple(r); }},
      {"Fan", [](S r, S, D& d) { V::range(r, d.fan); }},
      {"Trans", [](S r, S, D& d) { V::range(r, d.trans); }},
      {"Angle", [](S r, S, D& d) { V::range(r, d.angle); }},
      {"Twist", [](S r, S, D& d) { V::range(r, d.twist); }},
      {"Spin", [](S r, S, D& d) { V::range(r, d.spin); }},
      {"Translation", [](S r, S, D& d) { d.translation = V::triple(r); }},
      {"Basis", [](S r, S, D& d) { d.basis = V::integer(r); }},
      {"Deform_Points", [](S r, S, D& d) { d.deformPoints = V::boolean(r); }},
      {"Separator", [](S r, S, D& d) { d.separator = V::boolean(r); }},
      {"Method", [](S r, S, D& d) { d.method = V::integer(r); }},
      {"Operation", [](S r, S, D& d) { d.operation = V::integer(r); }},
  };
  return table;
}

// Knot-list sub-blocks of a type block and the field each fills.
const std::unordered_map<std::string, std::vector<Vector3> MvrTypeData::*>& typeKnotBlocks() {
  using D = MvrTypeData;
  static const std::unordered_map<std::string, std::vector<Vector3> D::*> table{
      {"Knots", &D::knots},
      {"ShapeKnots", &D::shapeKnots},
      {"Shape", &D::shapeKnots},
      {"Branchiness", &D::branchiness},
      {"Scale", &D::scaleKnots},
      {"Deviate", &D::deviate},
      {"GeomScale", &D::geomScale},
      {"Angle", &D::angleKnots},
      {"Screw", &D::screwKnots},
      {"Phototropism", &D::phototropism},
      {"Gravitropism", &D::gravitropism},
      {"Kruschtl", &D::kruschtl},
      {"Dense", &D::denseKnots},
      {"Patch_Points", &D::patchPoints},
  };
  return table;
}

}  // namespace

bool MvrReader::isTypeBlock(const std::string& name) {
  static const char* const kTypes[] = {"Camera",  "Horn",  "Hydra", "HyperPatch", "Leaf",
                                       "PhiBall", "Prune", "Revo",  "Tree",       "Wreath"};
  for (const char* type : kTypes)
    if (name == type) return true;
  return false;
}

// Struct := lines, then Children, Primitive, Transform, Switch, then the type blocks.
MvrComponent MvrReader::readComponent(const Chunk& block) {
  MvrComponent component;
  readLines(block, structLines(), std::string(), component);
  for (const auto& [name, child] : block.children) {
    if (name == "Children")
      component.children = MvrValue::names(*child);
    else if (name == "Primitive")
      readPrimitive(*child, component.primitive);
    else if (name == "Transform")
      readTransform(*child, component.transform);
    else if (name == "Switch")
      component.switchMasks = MvrValue::masks(*child);
  }
  for (const auto& [name, child] : block.children) {
    if (!isTypeBlock(name)) continue;
    component.type = name;
    readTypeBlock(name, *child, component.typeData);
  }
  return component;
}

void MvrReader::readTransform(const Chunk& block, MvrTransform& transform) {
  readLines(block, transformLines(), std::string(), transform);
}

// Primitive := lines, Transform, Profil (knots), GFXColor.
void MvrReader::readPrimitive(const Chunk& block, MvrPrimitive& primitive) {
  readLines(block, primitiveLines(), std::string(), primitive);
  for (const auto& [name, child] : block.children) {
    if (name == "Transform")
      readTransform(*child, primitive.transform);
    else if (name == "Profil")
      primitive.profil = MvrValue::knots(*child);
    else if (name == "GFXColor")
      readGfxColor(*child, primitive);
  }
}

void MvrReader::readGfxColor(const Chunk& block, MvrPrimitive& primitive) {
  readLines(block, gfxColorLines(), std::string(), primitive);
}

// type block := lines, knot lists, name lists "Ribs" and "Branches" (one set).
void MvrReader::readTypeBlock(const std::string& type, const Chunk& block, MvrTypeData& data) {
  readLines(block, typeLines(), type, data);
  const auto& knotBlocks = typeKnotBlocks();
  for (const auto& [name, child] : block.children) {
    if (name == "Ribs" || name == "Branches") {
      const std::set<std::string> names = MvrValue::names(*child);
      data.branches.insert(names.begin(), names.end());
      continue;
    }
    const auto found = knotBlocks.find(name);
    if (found != knotBlocks.end()) data.*(found->second) = MvrValue::knots(*child);
  }
}

void MvrReader::readModel(const Chunk& block, MvrKeyFrame& keyFrame) {
  for (const auto& [name, child] : block.children) {
    if (name != "Struct") continue;
    MvrComponent component = readComponent(*child);
    std::string key = component.name;
    keyFrame.components.insert_or_assign(std::move(key), std::move(component));
  }
}

// KeyFrame := Name, Time lines and Model blocks of Structs.
MvrKeyFrame MvrReader::readKeyFrame(const Chunk& block) {
  MvrKeyFrame keyFrame;
  std::string rest;
  for (const std::string& line : block.lines) {
    const std::string keyword = MvrValue::keyword(line, rest);
    if (keyword == "Name") {
      keyFrame.name = MvrValue::text(rest);
    } else if (keyword == "Time") {
      keyFrame.time = MvrValue::real(rest);
      keyFrame.timeText = rest;
    }
  }
  for (const auto& [name, child] : block.children)
    if (name == "Model") readModel(*child, keyFrame);
  return keyFrame;
}

void MvrReader::readKeyFrames(std::istream& stream, KeyFrames& keyFrames,
                              std::vector<std::string>& rootLines,
                              const FramesCallback& setFrames) {
  Chunk root;
  root.read(stream);
  rootLines = std::move(root.lines);
  for (const auto& [name, block] : root.children) scanBlock(name, *block, keyFrames, setFrames);
}

// structure := Queue | Unit | Entity | KeySequence (holding structure) | KeyFrame | Model.
void MvrReader::scanBlock(const std::string& name, const Chunk& block, KeyFrames& keyFrames,
                          const FramesCallback& setFrames) {
  std::vector<std::pair<const std::string*, const Chunk*>> pending{{&name, &block}};
  while (!pending.empty()) {
    const auto [blockName, chunk] = pending.back();
    pending.pop_back();
    const bool isQueue = *blockName == "Queue";
    if (isQueue || *blockName == "Unit" || *blockName == "Entity" || *blockName == "KeySequence") {
      std::string rest;
      for (const std::string& line : chunk->lines)
        if (isQueue && MvrValue::keyword(line, rest) == "Frames" && setFrames)
          setFrames(MvrValue::integer(rest));
      // Pushed in reverse, so that sub-blocks are scanned in file order.
      for (auto child = chunk->children.rbegin(); child != chunk->children.rend(); ++child)
        pending.emplace_back(&child->first, child->second.get());
    } else if (*blockName == "KeyFrame") {
      MvrKeyFrame keyFrame = readKeyFrame(*chunk);
      const double time = keyFrame.time;
      keyFrames.insert_or_assign(time, std::move(keyFrame));
    } else if (*blockName == "Model") {
      MvrKeyFrame keyFrame;
      readModel(*chunk, keyFrame);
      keyFrames.insert_or_assign(keyFrame.time, std::move(keyFrame));
    }
  }
}

}  // namespace mv
