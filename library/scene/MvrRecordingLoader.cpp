#include "scene/MvrRecordingLoader.h"

#include <sstream>
#include <utility>

#include "geometry/Spline.h"

namespace mv {

namespace {

using Values = std::vector<std::pair<std::string, double>>;

std::string number(double value) {
  std::ostringstream text;
  text << value;
  return text.str();
}

}  // namespace

std::vector<const MvrCall*> MvrRecordingLoader::callsOf(const std::string& operation) const {
  std::vector<const MvrCall*> result;
  for (const MvrCall& call : calls)
    if (call.operation == operation) result.push_back(&call);
  return result;
}

std::string MvrRecordingLoader::describe(const MvrCall& call) {
  std::string line = call.operation;
  if (!call.name.empty()) line += " \"" + call.name + "\"";
  if (!call.created.empty() && call.created != call.name) line += " as \"" + call.created + "\"";
  if (call.operation == "insertUnder")
    line += call.parent.empty() ? " at the top" : " under \"" + call.parent + "\"";
  else if (!call.parent.empty())
    line += " primitive \"" + call.parent + "\"";
  if (call.header.hidden) line += " hidden";
  if (!call.text.empty()) line += " material \"" + call.text + "\"";
  for (const auto& [key, value] : call.values) line += " " + key + "=" + number(value);
  for (const auto& [key, curve] : call.curves) {
    std::string expression;
    curve.getExpression(expression);
    line += " " + key + "=[" + number(curve.evaluateCurve(0)) + ".." +
            number(curve.evaluateCurve(1)) + " " + expression + "]";
  }
  return line;
}

// Registers the created name: the name asked for, or with the first free suffix "_2", "_3"...
std::string MvrRecordingLoader::record(MvrCall call) {
  if (call.operation.compare(0, 6, "create") == 0) {
    std::string created = call.name;
    if (taken_.count(created)) {
      int& suffix = nextSuffix_.try_emplace(call.name, 2).first->second;
      do created = call.name + "_" + std::to_string(suffix++);
      while (taken_.count(created));
    }
    taken_.insert(created);
    call.created = created;
  }
  calls.push_back(std::move(call));
  return calls.back().created;
}

std::string MvrRecordingLoader::primitive(const std::string& operation, const std::string& name,
                                          const Matrix4& matrix, Values values) {
  MvrCall call;
  call.operation = operation;
  call.name = name;
  call.header.name = name;
  call.header.matrix = matrix;
  call.values = std::move(values);
  return record(std::move(call));
}

std::string MvrRecordingLoader::classic(const std::string& operation, const MvrHeader& header,
                                        const std::string& primitive, Values values,
                                        std::map<std::string, CurveParam> curves) {
  MvrCall call;
  call.operation = operation;
  call.name = header.name;
  call.parent = primitive;
  call.header = header;
  call.values = std::move(values);
  call.curves = std::move(curves);
  return record(std::move(call));
}

bool MvrRecordingLoader::setFrames(int frames) {
  record({"setFrames", "", "", "", {}, {{"frames", frames}}, "", {}});
  return true;
}

bool MvrRecordingLoader::setBackground(float red, float green, float blue) {
  record(
      {"setBackground", "", "", "", {}, {{"red", red}, {"green", green}, {"blue", blue}}, "", {}});
  return true;
}

bool MvrRecordingLoader::addMaterial(const std::string& object, const MvrMaterial& material,
                                     const Vector3& textureScale, const Vector3& textureOffset,
                                     int materialIndex) {
  const Values values{{"index", materialIndex},
                      {"scaleS", textureScale.x},
                      {"scaleT", textureScale.y},
                      {"offsetS", textureOffset.x},
                      {"offsetT", textureOffset.y}};
  record({"addMaterial", object, "", "", {}, values, material.name, {}});
  return true;
}

bool MvrRecordingLoader::insertUnder(const std::string& object, const std::string& parent) {
  record({"insertUnder", object, parent, "", {}, {}, "", {}});
  return true;
}

std::string MvrRecordingLoader::createMesh(const std::string& name, int kind, const Matrix4& matrix,
                                           IMesh&, bool smooth) {
  return primitive("createMesh", name, matrix, {{"kind", kind}, {"smooth", smooth}});
}

std::string MvrRecordingLoader::createSpline(const std::string& name, int kind,
                                             const Matrix4& matrix, int interpolate,
                                             int subdivision, const Spline& spline) {
  const bool closed = spline.getSegmentCount() > 0 && spline.isSegmentClosed(0);
  return primitive("createSpline", name, matrix,
                   {{"kind", kind},
                    {"interpolate", interpolate},
                    {"subdivision", subdivision},
                    {"points", spline.getPointCount()},
                    {"closed", closed}});
}

std::string MvrRecordingLoader::createBox(const std::string& name, const Matrix4& matrix,
                                          double size, int resolution) {
  return primitive("createBox", name, matrix, {{"size", size}, {"resolution", resolution}});
}

std::string MvrRecordingLoader::createCone(const std::string& name, const Matrix4& matrix,
                                           double height, double radius, int slices, int stacks,
                                           int third) {
  return primitive("createCone", name, matrix,
                   {{"height", height},
                    {"radius", radius},
                    {"slices", slices},
                    {"stacks", stacks},
                    {"third", third}});
}

std::string MvrRecordingLoader::createCylinder(const std::string& name, const Matrix4& matrix,
                                               double radius, double height, int resolution) {
  return primitive("createCylinder", name, matrix,
                   {{"radius", radius}, {"height", height}, {"resolution", resolution}});
}

std::string MvrRecordingLoader::createSphere(const std::string& name, const Matrix4& matrix,
                                             double radius, int resolution) {
  return primitive("createSphere", name, matrix, {{"radius", radius}, {"resolution", resolution}});
}

std::string MvrRecordingLoader::createPlane(const std::string& name, const Matrix4& matrix,
                                            int facing, double size, int resolution) {
  return primitive("createPlane", name, matrix,
                   {{"facing", facing}, {"size", size}, {"resolution", resolution}});
}

std::string MvrRecordingLoader::createDisk(const std::string& name, const Matrix4& matrix,
                                           double radius, int resolution) {
  return primitive("createDisk", name, matrix, {{"radius", radius}, {"resolution", resolution}});
}

std::string MvrRecordingLoader::createCircle(const std::string& name, const Matrix4& matrix,
                                             double radius, int points) {
  return primitive("createCircle", name, matrix, {{"radius", radius}, {"points", points}});
}

std::string MvrRecordingLoader::createArc(const std::string& name, double radius, double start,
                                          double end, double offset) {
  return primitive("createArc", name, Matrix4(),
                   {{"radius", radius}, {"start", start}, {"end", end}, {"offset", offset}});
}

std::string MvrRecordingLoader::createAttractorPrim(const std::string& name, const Matrix4& matrix,
                                                    double a, double b, int mode) {
  return primitive("createAttractorPrim", name, matrix, {{"a", a}, {"b", b}, {"mode", mode}});
}

std::string MvrRecordingLoader::createVariation(const std::string& name, int kind, int seed,
                                                int index) {
  return primitive("createVariation", name, Matrix4(),
                   {{"kind", kind}, {"seed", seed}, {"index", index}});
}

std::string MvrRecordingLoader::createClassicSimple(const MvrHeader& header) {
  return classic("createClassicSimple", header, "", {});
}

std::string MvrRecordingLoader::createClassicPruning(const MvrHeader& header, int method) {
  return classic("createClassicPruning", header, "", {{"method", method}});
}

std::string MvrRecordingLoader::createClassicAttractor(const MvrHeader& header) {
  return classic("createClassicAttractor", header, "", {});
}

std::string MvrRecordingLoader::createClassicSimpleAttractor(const MvrHeader& header) {
  return classic("createClassicSimpleAttractor", header, "", {});
}

std::string MvrRecordingLoader::createClassicHyperpatch(const MvrHeader& header,
                                                        const std::vector<Vector3>& patchPoints) {
  return classic("createClassicHyperpatch", header, "",
                 {{"points", static_cast<double>(patchPoints.size())}});
}

std::string MvrRecordingLoader::createClassicRevo(const MvrHeader& header,
                                                  const std::string& primitive,
                                                  const std::vector<Vector3>& profile,
                                                  const CurveParam& displace) {
  return classic("createClassicRevo", header, primitive,
                 {{"points", static_cast<double>(profile.size())}}, {{"displace", displace}});
}

std::string MvrRecordingLoader::createClassicHydra(const MvrHeader& header, double unit,
                                                   double number, const CurveParam& spin,
                                                   const CurveParam& twist, const CurveParam& fan,
                                                   const CurveParam& scale) {
  return classic("createClassicHydra", header, "", {{"unit", unit}, {"number", number}},
                 {{"spin", spin}, {"twist", twist}, {"fan", fan}, {"scale", scale}});
}

std::string MvrRecordingLoader::createClassicWreath(const MvrHeader& header, double number,
                                                    double radius) {
  return classic("createClassicWreath", header, "", {{"number", number}, {"radius", radius}});
}

std::string MvrRecordingLoader::createClassicPhiball(const MvrHeader& header, double unit,
                                                     double number, double radius, double influence,
                                                     const CurveParam& angle, const CurveParam& fan,
                                                     const CurveParam& scale,
                                                     const CurveParam& trans) {
  return classic("createClassicPhiball", header, "",
                 {{"unit", unit}, {"number", number}, {"radius", radius}, {"influence", influence}},
                 {{"angle", angle}, {"fan", fan}, {"scale", scale}, {"trans", trans}});
}

std::map<std::string, CurveParam> MvrRecordingLoader::hornCurves(const MvrHornRecord& horn) {
  return {{"shape", horn.shape},
          {"rotX", horn.rotX},
          {"rotY", horn.rotY},
          {"rotZ", horn.rotZ},
          {"trX", horn.trX},
          {"trY", horn.trY},
          {"dense", horn.dense},
          {"screw", horn.screw},
          {"flap", horn.flap},
          {"scale", horn.scale},
          {"steps", horn.steps},
          {"phototropism", horn.phototropism},
          {"gravitropism", horn.gravitropism},
          {"displace", horn.displace}};
}

std::string MvrRecordingLoader::createClassicHorn(const MvrHeader& header,
                                                  const MvrHornRecord& horn) {
  return classic("createClassicHorn", header, horn.primitive,
                 {{"unit", horn.unit},
                  {"segments", horn.segments},
                  {"moveScale", horn.moveScale},
                  {"length", horn.length},
                  {"top", horn.top},
                  {"smooth", horn.smooth},
                  {"pathKeys", static_cast<double>(horn.path.size())},
                  {"separator", horn.separator}},
                 hornCurves(horn));
}

std::string MvrRecordingLoader::createClassicLeaf(const MvrHeader& header,
                                                  const MvrHornRecord& leaf) {
  return classic("createClassicLeaf", header, leaf.primitive,
                 {{"hasChildren", leaf.hasChildren},
                  {"unit", leaf.unit},
                  {"segments", leaf.segments},
                  {"length", leaf.length},
                  {"smooth", leaf.smooth},
                  {"pathKeys", static_cast<double>(leaf.path.size())}},
                 hornCurves(leaf));
}

std::string MvrRecordingLoader::createClassicTree(const MvrHeader& header,
                                                  const MvrTreeRecord& tree) {
  return classic("createClassicTree", header, tree.primitive,
                 {{"unit", tree.unit},
                  {"segments", tree.segments},
                  {"length", tree.length},
                  {"iniScale", tree.iniScale},
                  {"top", tree.top},
                  {"branchNum", tree.branchNum},
                  {"kruschtlKnots", tree.kruschtlKnots},
                  {"pairs", static_cast<double>(tree.pairs)},
                  {"version", static_cast<double>(tree.version)},
                  {"pathKeys", static_cast<double>(tree.path.size())},
                  {"separator", tree.separator}},
                 {{"shape", tree.shape},
                  {"deviate", tree.deviate},
                  {"kruschtl", tree.kruschtl},
                  {"branchiness", tree.branchiness},
                  {"screw", tree.screw},
                  {"angle", tree.angle},
                  {"dense", tree.dense},
                  {"scale", tree.scale},
                  {"geomScale", tree.geomScale},
                  {"phototropism", tree.phototropism},
                  {"gravitropism", tree.gravitropism},
                  {"displace", tree.displace}});
}

}  // namespace mv
