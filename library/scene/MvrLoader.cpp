#include "scene/MvrLoader.h"

#include <algorithm>
#include <cmath>
#include <fstream>

#include "core/MathConstants.h"
#include "core/MessageSink.h"
#include "core/ParameterSet.h"
#include "core/ProgressSink.h"
#include "curves/MersenneTwister.h"
#include "geometry/SplineData.h"
#include "growth/Variation.h"
#include "scene/Chunk.h"
#include "scene/MvrCurveConversion.h"
#include "scene/MvrReader.h"
#include "scene/MvrValue.h"

namespace mv {

namespace {

constexpr double kGoldenRatio = 1.618033988749895;
// Counts handed to create operations stay far from the limits of int.
constexpr int kMaxCount = 1 << 30;

int count(double value) { return std::clamp(MvrValue::wholeNumber(value), -kMaxCount, kMaxCount); }

bool isOneOf(const std::string& text, std::initializer_list<const char*> choices) {
  for (const char* choice : choices)
    if (text == choice) return true;
  return false;
}

// Types whose children go to the special link and which may have branches.
bool hasBranches(const std::string& type) { return isOneOf(type, {"Horn", "Tree", "Leaf"}); }

// Ends the progress display on every way out of a load.
struct ProgressScope {
  ProgressScope() { progressSink.setProgress(0.0); }
  ~ProgressScope() { progressSink.finish(); }
};

SplineData splineThrough(const std::vector<Vector3>& points, bool closed) {
  SplineData spline;
  const auto n = static_cast<uint32_t>(points.size());
  if (!spline.allocate(n, 1)) return spline;
  for (uint32_t i = 0; i < n; ++i)
    spline.setPoint(i, n > 1 ? double(i) / double(n - 1) : 0.0, points[i]);
  spline.setSegment(0, n, closed);
  spline.finish();
  return spline;
}

}  // namespace

void MvrLoader::initParameters(ParameterSet& settings, double unit) {
  settings.setDouble(IdUnit, unit);
  settings.setInt(IdCircleMode, 1);
  settings.setBool(IdFractionalCurvature, false);
  settings.setBool(IdHornKnotPath, false);
  settings.setBool(IdTreeKnotPath, false);
}

bool MvrLoader::identify(const char* probe, std::size_t size) {
  static const char kMagic[] = "Version 0.93";
  return probe && size >= 12 && std::equal(kMagic, kMagic + 12, probe);
}

bool MvrLoader::load(ParameterSet& settings, const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file.is_open()) {
    // Paths of the old Mac OS: "Disk:folder:file" becomes "/folder/file".
    std::string alternative = path;
    std::replace(alternative.begin(), alternative.end(), ':', '/');
    const std::size_t slash = alternative.find('/');
    if (slash != std::string::npos) alternative.erase(0, slash);
    messageSink.debug(alternative);
    file.open(alternative, std::ios::binary);
    if (!file.is_open()) messageSink.debug("The file can't be opened!!!");
  }
  if (!file.is_open()) return false;
  return loadStream(settings, file);
}

bool MvrLoader::loadStream(ParameterSet& settings, std::istream& stream) {
  materials.clear();
  createdNames.clear();
  skipped.clear();
  visited_.clear();
  ancestors_.clear();
  switchNodes_ = 0;
  switchesCut_ = false;
  materialIndices_.clear();
  settings_ = &settings;
  unit_ = settings.getDouble(IdUnit);
  ProgressScope progress;

  MvrReader::KeyFrames keyFrames;
  std::vector<std::string> rootLines;
  MvrReader::readKeyFrames(stream, keyFrames, rootLines, [this](int frames) { setFrames(frames); });
  readRootLines(rootLines);
  if (keyFrames.empty()) return false;
  progressSink.setProgress(0.1);
  components_ = &keyFrames.begin()->second.components;

  const std::vector<std::string> roots = findRoots(*components_);
  if (roots.empty()) {
    messageSink.error("IMPORT: No Root Object(s) found!");
    return false;
  }
  for (const std::string& root : roots) {
    const MvrComponent& component = components_->at(root);
    LoadContext context;
    context.hidden = component.type != "Camera";
    materialIndices_.try_emplace(context.material.name, static_cast<int>(materials.size()));
    materials.push_back(context.material);
    const std::string created = buildObject(component, context, 0);
    if (created.empty()) return false;
    insertUnder(created, "");
  }
  progressSink.setProgress(1.0);
  return true;
}

void MvrLoader::readRootLines(const std::vector<std::string>& lines) {
  std::string rest;
  for (const std::string& line : lines) {
    const std::string keyword = MvrValue::keyword(line, rest);
    if (keyword == "Version") {
      const std::string major = Chunk::cutAt(rest, '.');
      messageSink.print("Morvo File Version : " + std::to_string(MvrValue::integer(major)) + "." +
                        std::to_string(MvrValue::integer(rest)));
    } else if (keyword == "Background") {
      const Vector3 colour = MvrValue::plainTriple(rest) / 255.0;
      setBackground(MvrValue::single(colour.x), MvrValue::single(colour.y),
                    MvrValue::single(colour.z));
    }
  }
}

std::vector<std::string> MvrLoader::findRoots(
    const std::map<std::string, MvrComponent>& components) {
  std::set<std::string> linked;
  for (const auto& entry : components) {
    linked.insert(entry.second.children.begin(), entry.second.children.end());
    linked.insert(entry.second.typeData.branches.begin(), entry.second.typeData.branches.end());
  }
  std::vector<std::string> roots;
  for (const auto& entry : components)
    if (linked.count(entry.first) == 0) roots.push_back(entry.first);
  return roots;
}

std::string MvrLoader::buildObject(const MvrComponent& component, LoadContext context, int depth) {
  const std::string& name = component.name;
  // Before the visited test: a link back to an ancestor would close a loop in the scene.
  if (ancestors_.count(name)) {
    messageSink.error("Link cycle: \"" + name + "\" is linked below itself");
    return {};
  }
  const auto found = visited_.find(name);
  if (found != visited_.end()) return found->second;
  if (depth > kMaxDepth) {
    messageSink.error("Object tree deeper than " + std::to_string(kMaxDepth) + " levels at \"" +
                      name + "\"");
    return {};
  }
  const bool materialChanged = applyMaterial(component, context);
  std::string extra;
  const std::string created = createComponent(component, context, extra);
  if (created.empty() || progressSink.isCancelled()) return {};
  visited_[name] = created;
  if (materialChanged) linkMaterial(component, created, context);

  std::vector<std::string> standard, special;
  if (!extra.empty()) standard.push_back(extra);
  ancestors_.insert(name);
  const bool linked = buildLinks(component, context, depth, standard, special);
  ancestors_.erase(name);
  if (!linked) return {};

  const bool standardNode = isOneOf(component.type, {"Tree", "Horn", "Hydra", "Wreath"}) &&
                            (standard.size() > 1 || (standard.empty() && !special.empty()));
  linkNames(standard, "Standard_Link", standardNode, created);
  linkNames(special, "Special_Link", special.size() > 1, created);
  return created;
}

// Children, then branches; false when a type without branches has some.
bool MvrLoader::buildLinks(const MvrComponent& component, const LoadContext& context, int depth,
                           std::vector<std::string>& standard, std::vector<std::string>& special) {
  for (const std::string& child : component.children) {
    const auto found = components_->find(child);
    if (found == components_->end()) {
      noteSkip(MvrSkip::MissingLink, component.name, child);
      continue;
    }
    const std::string created = buildObject(found->second, context, depth + 1);
    if (created.empty()) continue;
    (hasBranches(component.type) ? special : standard).push_back(created);
  }
  for (const std::string& branch : component.typeData.branches) {
    const auto found = components_->find(branch);
    if (found == components_->end()) {
      noteSkip(MvrSkip::MissingLink, component.name, branch);
      continue;
    }
    if (!hasBranches(component.type)) {
      messageSink.error("Found Branch/Rib Link in non Tree/Horn Object \"" + component.name + "\"");
      return false;
    }
    const std::string created = buildObject(found->second, context, depth + 1);
    if (!created.empty()) standard.push_back(created);
  }
  return true;
}

// Links names under a new node linkName (when withNode) or directly under created.
void MvrLoader::linkNames(const std::vector<std::string>& names, const std::string& linkName,
                          bool withNode, const std::string& created) {
  const std::string node = withNode ? createClassicSimple(MvrHeader(linkName)) : std::string();
  const std::string& parent = node.empty() ? created : node;
  for (const std::string& name : names) {
    const auto component = components_->find(name);
    if (component != components_->end())
      insertSwitched(name, parent, component->second.switchMasks);
    else
      insertUnder(name, parent);
  }
  if (!node.empty()) insertUnder(node, created);
}

// Each clear bit k wraps the child into one more Variation "Switch_k", whose second child is
// an empty object: instance k of the child is replaced by nothing.
void MvrLoader::insertSwitched(const std::string& child, const std::string& parent,
                               const std::vector<std::uint16_t>& masks) {
  std::vector<std::pair<std::string, std::size_t>> switches;  // created name and bit
  std::string current = parent;
  bool linked = true;
  for (std::size_t bit = 0; bit < masks.size() * 16; ++bit) {
    if (masks[bit / 16] & (1u << (bit % 16))) continue;
    if (switchNodes_ == kMaxSwitchNodes) {
      if (!switchesCut_) messageSink.warning("Too many switches: further instances stay shown");
      switchesCut_ = true;
      break;
    }
    ++switchNodes_;
    const std::string number = std::to_string(bit);
    const std::string node = createVariation("Switch_" + number, Variation::ModeSpecial,
                                             MersenneTwister::kDefaultSeed, static_cast<int>(bit));
    if (node.empty()) {
      linked = false;
      break;
    }
    insertUnder(node, current);
    switches.emplace_back(node, bit);
    current = node;
  }
  if (linked) insertUnder(child, current);
  for (auto entry = switches.rbegin(); entry != switches.rend(); ++entry) {
    const std::string null =
        createClassicSimple(MvrHeader("Switch_" + std::to_string(entry->second) + "_Null"));
    insertUnder(null, entry->first);
  }
}

bool MvrLoader::applyMaterial(const MvrComponent& component, LoadContext& context) {
  const MvrPrimitive& p = component.primitive;
  if (!p.useGfxColor && p.textureHandler != 1) return false;
  MvrMaterial material = context.material;
  if (p.useGfxColor) {
    material.color = p.color;
    material.ambient = p.ambient;
    material.diffuse = p.diffuse;
    material.specular = p.specular;
    material.emission = p.emission;
    material.alpha = p.alpha.value;
  }
  if (p.textureHandler == 1) {
    material.texture = p.texture;
    material.textureFile = p.textureFile == "None" ? std::string() : p.textureFile;
    material.textureOffset = {p.textureShiftS.value, p.textureShiftT.value, 0};
    material.textureScale = {p.textureScaleS.value, p.textureScaleT.value, 0};
  }
  material.name = component.name + (material.color.empty() ? "" : "_" + material.color);
  // The first material of that name keeps its index; an index map keeps the search linear.
  const auto [entry, added] =
      materialIndices_.try_emplace(material.name, static_cast<int>(materials.size()));
  context.materialIndex = entry->second;
  if (added) materials.push_back(material);
  context.material = std::move(material);
  return true;
}

// Texture transform along swept surfaces: one texture length per segment.
void MvrLoader::linkMaterial(const MvrComponent& component, const std::string& created,
                             const LoadContext& context) {
  Vector3 scale(1, 1, 1), offset;
  const MvrPrimitive& p = component.primitive;
  if (isOneOf(component.type, {"Tree", "Horn", "Leaf", "Revo"}) &&
      isOneOf(p.type, {"Area", "Tube"})) {
    const double s = component.typeData.segments.value - (component.type == "Tree" ? 1 : 0);
    const double scaleT = p.textureScaleT.value;
    offset = {p.textureShiftS.value, p.textureShiftT.value * scaleT / s, 0};
    scale = {p.textureScaleS.value, -scaleT / s, 1};
  }
  if (!addMaterial(created, context.material, scale, offset, context.materialIndex))
    messageSink.warning("Could not create Material for Object \"" + component.name + "\"");
}

Matrix4 MvrLoader::makeTransform(const Vector3& translation, const Vector3& rotation,
                                 const Vector3& scale, double unit) {
  return Matrix4::scaling(scale) * Matrix4::rotationX(-rotation.x) *
         Matrix4::rotationY(rotation.y) * Matrix4::rotationZ(-rotation.z) *
         Matrix4::translation(translation * unit);
}

MvrHeader MvrLoader::makeHeader(const MvrComponent& component, bool hidden) const {
  MvrHeader header(component.name);
  const MvrPrimitive& p = component.primitive;
  header.hidden = hidden || component.hide;
  header.existenceStart = component.existence.start;
  header.existenceEnd = component.existence.end;
  const MvrTransform& t = component.transform;
  header.matrix = makeTransform(t.translation.value, t.rotation.value, t.scale.value, unit_);
  header.switchMasks = component.switchMasks;
  header.photoAxis = component.photoDir == "X" ? 0 : component.photoDir == "Z" ? 2 : 1;
  header.photoStrength = component.photo.value;
  header.primitiveType = p.type;
  header.solid = p.type != "Undefined" && !p.flat;
  header.attractorMode = p.attractorMode;
  header.attractorCenter = p.attractorCenter;
  header.attractorStrength = p.attractorStrength.value;
  header.primitiveTranslation = p.transform.translation.value;
  header.primitiveScale = p.transform.scale.value;
  header.primitiveRotation = p.transform.rotation.value;
  return header;
}

std::string MvrLoader::createComponent(const MvrComponent& component, const LoadContext& context,
                                       std::string& extra) {
  messageSink.debug("createComponent(" + component.name + ", " + component.primitive.type + ")");
  const auto known = createdNames.find(component.name);
  if (known != createdNames.end()) return known->second;
  MvrHeader header = makeHeader(component, context.hidden);
  const std::string primitive = createPrimitive(component);
  const std::string created = createByType(component, header, primitive, extra);
  if (!created.empty()) createdNames[component.name] = created;
  return created;
}

std::string MvrLoader::createByType(const MvrComponent& component, MvrHeader& header,
                                    const std::string& primitive, std::string& extra) {
  using C = MvrCurveConversion;
  const std::string& type = component.type;
  const MvrTypeData& d = component.typeData;
  const bool flatLeaf =
      type == "Leaf" && isOneOf(component.primitive.type, {"Square", "Triangle1", "Triangle2"});
  if (type == "Camera") return createClassicSimple(header);
  if (type == "Prune") {
    extra = primitive;
    return createClassicPruning(header, d.method);
  }
  if (type == "Tree") {
    const Matrix4 turn = Matrix4::rotationZ(d.version < 6 ? kPi : -kPi / 2);
    header.matrix = turn * header.matrix;
    return createClassicTree(header, treeRecord(component, primitive));
  }
  if (type == "Horn") return createClassicHorn(header, hornRecord(component, primitive));
  if (type == "Leaf" && !flatLeaf)
    return createClassicLeaf(header, hornRecord(component, primitive));
  if (type == "Revo" && component.primitive.type == "Tube") {
    std::vector<Vector3> points = d.shapeKnots;
    for (Vector3& point : points) point.z *= unit_;
    return createClassicRevo(header, primitive, points, C::curveOf(component.primitive.displace));
  }
  if (type == "PhiBall") {
    extra = primitive;
    MvrRange angle = d.angle;
    for (double* v : {&angle.start, &angle.end, &angle.min, &angle.max})
      *v = 2 * kPi / (*v * kGoldenRatio);
    angle.function = "id";
    return createClassicPhiball(header, unit_, d.number.value, d.radius.value, d.influence.value,
                                C::directCurveOf(angle), C::directCurveOf(d.fan),
                                C::curveOf(d.scaleRange), C::curveOf(d.trans));
  }
  if (type == "Hydra")
    return createClassicHydra(header, unit_, d.number.value, C::curveOf(d.spin),
                              C::curveOf(d.twist), C::curveOf(d.fan), C::curveOf(d.scaleRange));
  if (type == "Wreath")
    return createClassicWreath(header, d.number.value, d.translation.value * unit_);
  if (type == "Simple" || flatLeaf) {
    extra = primitive;
    return createClassicSimple(header);
  }
  if (type == "HyperPatch") return createClassicHyperpatch(header, d.patchPoints);
  messageSink.debug("Unknown Component Type " + type);
  noteSkip(MvrSkip::UnknownType, component.name, type);
  return createClassicSimple(header);
}

MvrHornRecord MvrLoader::hornRecord(const MvrComponent& component,
                                    const std::string& primitive) const {
  using C = MvrCurveConversion;
  const MvrTypeData& d = component.typeData;
  MvrHornRecord r;
  r.primitive = primitive;
  r.hasChildren = !component.children.empty();
  r.unit = unit_;
  r.segments = d.segments.value;
  r.moveScale = d.moveScale;
  r.length = d.length.value;
  r.top = d.top;
  r.smooth = d.smooth;
  if (d.spline) r.path = C::arcLengthPath(d.knots);
  r.shape = d.applyShape ? C::normalisedShape(d.shapeKnots) : C::curveOf(d.shape);
  r.rotX = C::curveOf(d.rotX);
  r.rotY = C::curveOf(d.rotY);
  r.rotZ = C::curveOf(d.rotZ);
  r.trX = C::curveOf(d.trX);
  r.trY = C::curveOf(d.trY);
  r.dense = C::curveOf(d.dense);
  r.screw = C::directCurveOf(d.screw);
  r.flap = C::curveOf(d.flap);
  r.scale = C::curveOf(d.scaleRange);
  r.steps = C::curveOf(d.steps);
  r.phototropism = C::curveOfKnots(d.phototropism, true, 1);
  r.gravitropism = C::curveOfKnots(d.gravitropism, true, 1);
  r.displace = C::curveOf(component.primitive.displace);
  r.separator = component.primitive.separator;
  return r;
}

MvrTreeRecord MvrLoader::treeRecord(const MvrComponent& component,
                                    const std::string& primitive) const {
  using C = MvrCurveConversion;
  const MvrTypeData& d = component.typeData;
  MvrTreeRecord r;
  r.primitive = primitive;
  r.unit = unit_;
  r.segments = d.segments.value;
  r.length = d.length.value;
  r.iniScale = d.iniScale.value;
  r.top = d.top;
  r.branchNum = d.branchNum.value;
  r.shape = C::curveOfKnots(d.shapeKnots, true, 1);
  r.deviate = C::curveOfKnots(d.deviate, false, 1);
  r.kruschtlKnots = d.kruschtlKnots.value;
  r.kruschtl = C::curveOfKnots(d.kruschtl, false, 1);
  r.branchiness = C::curveOfKnots(d.branchiness, true, 1);
  r.screw = C::scaledKnotCurve(d.screwKnots, 3.2360678, 2 * kPi);
  r.angle = C::scaledKnotCurve(d.angleKnots, kPi, kPi);
  r.dense = C::curveOfKnots(d.denseKnots, true, 4);
  r.scale = C::curveOfKnots(d.scaleKnots, true, 1);
  r.geomScale = C::curveOfKnots(d.geomScale, true, 4);
  r.pairs = d.pairs;
  r.phototropism = C::curveOfKnots(d.phototropism, true, 1);
  r.gravitropism = C::curveOfKnots(d.gravitropism, true, 1);
  r.version = d.version;
  if (d.spline) r.path = C::arcLengthPath(d.knots);
  r.displace = C::curveOf(component.primitive.displace);
  r.separator = component.primitive.separator;
  return r;
}

std::string MvrLoader::createPrimitive(const MvrComponent& component) {
  const MvrPrimitive& p = component.primitive;
  const std::string name = component.name + "_" + p.type;
  messageSink.debug("createPrimitive: " + component.type + " : " + p.type);
  const MvrTransform& t = p.transform;
  const Matrix4 m = makeTransform(t.translation.value, t.rotation.value, t.scale.value, unit_);
  const int res = count(p.resolution);
  const int floorRes = count(std::floor(p.resolution));
  const bool leaf = component.type == "Leaf";
  const Matrix4 x = leaf ? Matrix4::translation({0, 0, unit_ / 2}) : Matrix4();
  const int facing = leaf ? 3 : 4;
  if (p.type == "Attractor")
    return createAttractorPrim(name, m, settings_->getDouble(IdAttractorA),
                               settings_->getDouble(IdAttractorB),
                               settings_->getInt(IdAttractorMode));
  if (p.type == "Tube" && p.applyProfil3D) {
    std::vector<Vector3> points = p.profil;
    for (Vector3& point : points) point *= unit_;
    return createPointSpline(name, 1, m, 0, 1, 0, points);
  }
  if (p.type == "Tube") return createCircle(name, m, unit_ / 2, count(p.points));
  if (p.type == "Area") return createArea(component, name, m);
  if (p.type == "Square") return createPlane(name, x * m, facing, unit_, floorRes);
  if (isOneOf(p.type, {"Triangle1", "Triangle2"}))
    return createPlane(name, m * x, facing, unit_, floorRes);
  if (p.type == "Circle") return createDisk(name, m, unit_ / 2, res);
  if (p.type == "Box") return createBox(name, m * Matrix4::rotationZ(kPi), unit_, res);
  if (p.type == "Sphere")
    return createSphere(name, m * Matrix4::rotationZ(kPi / 2), unit_ / 2, res);
  if (p.type == "Cylinder") return createCylinder(name, m, unit_ / 2, unit_, res);
  if (p.type == "Cone")
    return createCone(name, m, unit_, unit_ / 2, res + 5, res, count(std::ceil(res / 2.0)));
  return {};  // "Undefined" and unknown primitives make nothing
}

// A straight cross-section from (0.5, 0, 0) to (-0.5, 0, 0), shaped by the Profil knots.
std::string MvrLoader::createArea(const MvrComponent& component, const std::string& name,
                                  const Matrix4& matrix) {
  const MvrPrimitive& p = component.primitive;
  const std::size_t n = p.profil.size();
  std::vector<Vector3> points(n);
  for (std::size_t i = 0; i < n; ++i) {
    const double u = n > 1 ? double(i) / double(n - 1) : 0.0;
    points[i] = {0.5 - u, 0, 0};
    if (p.applyProfil)
      points[i].y = p.profil[n - 1 - i].y;
    else if (p.applyProfil3D)
      points[i] = p.profil[i];
    points[i] *= unit_;
  }
  Matrix4 d;
  if (component.type == "Leaf") {
    const Vector3 s = component.typeData.scaleRows.value;
    d = Matrix4::scaling({s.x / 2, s.z, s.y});
  }
  return createSpline(name, 1, matrix * d, 0, 0, splineThrough(points, false));
}

std::string MvrLoader::createPointSpline(const std::string& name, int kind, const Matrix4& matrix,
                                         int interpolate, int closed, int subdivision,
                                         const std::vector<Vector3>& points) {
  return createSpline(name, kind, matrix, interpolate, subdivision,
                      splineThrough(points, closed != 0));
}

}  // namespace mv
