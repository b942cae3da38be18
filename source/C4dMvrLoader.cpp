#include "source/C4dMvrLoader.h"

#include <cmath>

#include "core/MathConstants.h"
#include "host/BaseContainer.h"
#include "host/BaseDocument.h"
#include "host/BaseObject.h"
#include "host/BaseTag.h"
#include "host/HostConsole.h"
#include "host/HostIds.h"
#include "host/LineObject.h"
#include "host/ModelingCommand.h"
#include "host/PolygonObject.h"
#include "host/SplineObject.h"
#include "source/C4dObject.h"
#include "source/C4dParameterSet.h"
#include "source/MatrixConversion.h"
#include "source/PluginIds.h"

namespace {

constexpr double kPhongAngle = 89.0 * mv::kPi / 180.0;

// Parameter ids of the created growth objects, as their descriptions name them.
enum : int {
  IdBranchMode = 1005,
  IdPathGrowth = 1103,
  IdThickness = 1104,
  IdPathGrowthInherited = 1106,
  IdThicknessInherited = 1114,
  IdNodeThicknessCurved = 1134,
  IdNodeNumber = 1301,
  IdNodeNumberInherited = 1302,
  IdNodeGrowth = 1303,
  IdNodeAngle = 1304,
  IdNodeFlap = 1305,
  IdNodeDistribution = 1306,
  IdNodeScale = 1307,
  IdNodeWhorl = 1308,
  IdNodeScrew = 1309,
  IdNodeDensity = 1310,
  IdNodeGrowthCurved = 1323,
  IdNodeDensityCurved = 1330,
  IdNodeArrangement = 1349,
  IdNumberFractional = 1105,
  IdNumber = 1500,
  IdRadius = 1501,
  IdScale = 1503,
  IdShowSurface = 1504,
  IdSpacingByScale = 1505,
  IdDivergence = 1506,
  IdFollowPath = 1507,
  IdTilt = 1508,
  IdHydraTilt = 1601,
  IdHydraSpin = 1602,
  IdHydraSweep = 1603,
  IdHydraMode = 1605,
  IdTropismMode = 1101,
  IdTropismAxis = 7000,
  IdTropismStrength = 7001,
  IdTropismFollowGrowth = 7003,
  IdCurvSteps = 1102,
  IdCurvScaleZ = 1201,
  IdCurvLength = 1202,
  IdCurvRotaX = 1203,
  IdCurvRotaZ = 1204,
  IdCurvRotaY = 1205,
  IdCurvTranX = 1206,
  IdCurvTranZ = 1207,
  IdCurvTranY = 1208,
  IdVariationKind = 1000,
  IdVariationSeed = 1001,
  IdVariationIndex = 1002,
  IdDisplayLifeSpan = 1012,
  IdInstanceLink = 1001,
  IdGridSize = 1000,
  IdGridX = 1001,
  IdGridY = 1002,
  IdGridZ = 1003,
};

void setCurve(BaseContainer* data, int id, const mv::CurveParam& curve) {
  C4dParameterSet::storeCurve(data, id, curve);
}

// Bounding box in the frame of a deformer.
struct Box {
  Vector low{1e300, 1e300, 1e300};
  Vector high{-1e300, -1e300, -1e300};
  void extend(const Vector& p) {
    low = {std::fmin(low.x, p.x), std::fmin(low.y, p.y), std::fmin(low.z, p.z)};
    high = {std::fmax(high.x, p.x), std::fmax(high.y, p.y), std::fmax(high.z, p.z)};
  }
  bool positive() const { return high.x > low.x && high.y > low.y && high.z > low.z; }
};

// Extends the box by the points of a current state tree, each object's points through its matrix
// relative to the box's frame.
void extendByState(Box& box, const BaseObject* state, const Matrix& toFrame) {
  if (const auto* points = dynamic_cast<const PointObject*>(state)) {
    for (Int32 i = 0; i < points->GetPointCount(); ++i)
      box.extend(toFrame * points->GetPointR()[i]);
  }
  for (const BaseObject* child = state->GetDown(); child; child = child->GetNext())
    extendByState(box, child, toFrame * child->GetMl());
}

// The current state of an object as the host's command 245 gives it; the caller owns it.
BaseObject* currentStateOf(BaseObject* object, BaseDocument* document) {
  ModelingCommandData command;
  command.doc = document;
  command.op = object;
  if (!SendModelingCommand(MCOMMAND_CURRENTSTATETOOBJECT, command) || !command.result)
    return nullptr;
  return static_cast<BaseObject*>(command.result->GetIndex(0));
}

}  // namespace

C4dMvrLoader::C4dMvrLoader(const Filename& file, BaseDocument* document, std::uint32_t filterFlags,
                           BaseContainer* container)
    : document(document), container(container), file(file), filterFlags(filterFlags) {}

// Objects that never reached a tree are still the loader's.
C4dMvrLoader::~C4dMvrLoader() {
  for (auto& entry : objects) {
    BaseObject* object = entry.second;
    if (object && !object->GetUp() && !object->GetDocument()) BaseObject::Free(object);
  }
  for (BaseObject* line : profileLines_) BaseObject::Free(line);
}

BaseObject* C4dMvrLoader::find(const std::string& name) const {
  const auto it = objects.find(name);
  return it == objects.end() ? nullptr : it->second;
}

std::string C4dMvrLoader::registerObject(const std::string& name, BaseObject* object) {
  std::string made = name;
  // The counter goes on where the last clash of this name left it.
  int& counter = nextCounter_.try_emplace(name, 1).first->second;
  while (objects.count(made)) made = name + std::to_string(counter++);
  objects[made] = object;
  return made;
}

std::string C4dMvrLoader::createObject(int type, const mv::MvrHeader& header) {
  BaseObject* object = BaseObject::Alloc(type);
  if (!object) return {};
  const Int32 mode = header.hidden ? MODE_OFF : MODE_UNDEF;
  object->SetEditorMode(mode);
  object->SetRenderMode(mode);
  object->SetName(header.name);
  object->SetMl(toHostMatrix(header.matrix));
  if (header.existenceStart != 0.0 || header.existenceEnd != 1.0) {
    if (BaseTag* display = object->MakeTag(Tdisplay))
      display->GetDataInstance()->SetBool(IdDisplayLifeSpan, true);
  }
  if (header.solid) object->SetPhong(true, false, kPhongAngle);
  return registerObject(header.name, object);
}

BaseObject* C4dMvrLoader::instanceOf(BaseObject* object) {
  BaseObject* instance = BaseObject::Alloc(Oinstance);
  if (!instance) return nullptr;
  instance->GetDataInstance()->SetLink(IdInstanceLink, object);
  instance->SetName(object->GetName() + "_Instance");
  instance->SetMl(object->GetMl());
  instance->SetEditorMode(object->GetEditorMode());
  instance->SetRenderMode(object->GetRenderMode());
  return instance;
}

bool C4dMvrLoader::insertUnder(const std::string& child, const std::string& parent) {
  BaseObject* object = find(child);
  if (!object) return false;
  BaseObject* parentObject = nullptr;
  if (!parent.empty()) {
    parentObject = find(parent);
    if (!parentObject) return false;
  } else if (!document) {
    return false;
  }
  // A second link stands as an instance; it goes into the tree at once, which then owns it.
  if (insertedNames.count(child) != 0) {
    object = instanceOf(object);
    if (!object) return false;
  }
  if (parentObject)
    object->InsertUnderLast(parentObject);
  else
    document->InsertObject(object, nullptr, nullptr);
  insertedNames.insert(child);
  return true;
}

bool C4dMvrLoader::setFrames(int frames) {
  if (!document) return false;
  const Int32 fps = document->GetFps();
  document->SetMinTime(BaseTime(0.0, fps));
  document->SetMaxTime(BaseTime(static_cast<Float>(frames), fps));
  return true;
}

bool C4dMvrLoader::setBackground(float red, float green, float blue) {
  if (!document) return false;
  GePrint("Background : " + std::to_string(red) + " " + std::to_string(green) + " " +
          std::to_string(blue));
  return true;
}

std::string C4dMvrLoader::createNull(const mv::MvrHeader& header) {
  return createObject(Onull, header);
}

std::string C4dMvrLoader::createBranch(const mv::MvrHeader& header,
                                       const mv::MvrBranchRecord& branch) {
  BaseObject* path = find(branch.path);
  if (branch.path.empty() || !path) return {};
  const std::string created = createObject(ID_BRANCH_OBJECT, header);
  if (created.empty()) return {};
  BaseObject* object = find(created);
  // Profile and path are always the first and second child: a null stands in for no profile.
  BaseObject* profile = find(branch.profile);
  if (!profile) {
    profile = BaseObject::Alloc(Onull);
    if (profile) profile->SetName(header.name + "_Undefined");
  }
  if (profile) profile->InsertUnderLast(object);
  path->InsertUnderLast(object);
  BaseContainer* data = object->GetDataInstance();
  data->SetReal(IdPathGrowth, branch.pathGrowth);
  data->SetBool(IdPathGrowthInherited, branch.pathGrowthInherited);
  data->SetBool(IdThicknessInherited, branch.thicknessInherited);
  data->SetBool(IdNodeThicknessCurved, branch.nodeThicknessCurved);
  setCurve(data, IdThickness, branch.thickness);
  data->SetReal(IdNodeNumber, branch.nodeNumber);
  data->SetBool(IdNodeNumberInherited, branch.nodeNumberInherited);
  setCurve(data, IdNodeAngle, branch.nodeAngle);
  data->SetBool(IdNodeGrowthCurved, branch.nodeGrowthCurved);
  setCurve(data, IdNodeGrowth, branch.nodeGrowth);
  setCurve(data, IdNodeFlap, branch.nodeFlap);
  setCurve(data, IdNodeDistribution, branch.nodeDistribution);
  setCurve(data, IdNodeScale, branch.nodeScale);
  setCurve(data, IdNodeScrew, branch.nodeScrew);
  data->SetBool(IdNodeDensityCurved, branch.nodeDensityCurved);
  setCurve(data, IdNodeDensity, branch.nodeDensity);
  data->SetLong(IdNodeArrangement, branch.nodeArrangement);
  data->SetLong(IdNodeWhorl, branch.pairedNodes ? 2 : 1);
  data->SetLong(IdBranchMode, 4);
  return created;
}

std::string C4dMvrLoader::createPhyllotaxis(const mv::MvrHeader& header,
                                            const mv::MvrPhyllotaxisRecord& phyllotaxis) {
  if (phyllotaxis.profile.empty()) return {};
  const std::string created = createObject(ID_PHYLLOTAXIS_OBJECT, header);
  if (created.empty()) return {};
  BaseObject* object = find(created);
  if (BaseObject* profile = find(phyllotaxis.profile)) profile->InsertUnderLast(object);
  BaseContainer* data = object->GetDataInstance();
  data->SetReal(IdNumber, phyllotaxis.number);
  setCurve(data, IdDivergence, phyllotaxis.divergence);
  setCurve(data, IdScale, phyllotaxis.scale);
  data->SetReal(IdSpacingByScale, phyllotaxis.spacingByScale);
  data->SetBool(IdNumberFractional, phyllotaxis.numberFractional);
  data->SetBool(IdShowSurface, phyllotaxis.showSurface);
  setCurve(data, IdTilt, phyllotaxis.tilt);
  data->SetBool(IdFollowPath, phyllotaxis.followPath);
  return created;
}

std::string C4dMvrLoader::createHydra(const mv::MvrHeader& header,
                                      const mv::MvrHydraRecord& hydra) {
  const std::string created = createObject(ID_HYDRA_OBJECT, header);
  if (created.empty()) return {};
  BaseContainer* data = find(created)->GetDataInstance();
  data->SetReal(IdNumber, hydra.number);
  data->SetReal(IdRadius, hydra.radius);
  data->SetBool(IdNumberFractional, hydra.numberFractional);
  setCurve(data, IdHydraSweep, hydra.hydraSweep);
  setCurve(data, IdHydraTilt, hydra.hydraTilt);
  data->SetLong(IdHydraMode, hydra.hydraMode);
  setCurve(data, IdHydraSpin, hydra.hydraSpin);
  setCurve(data, IdScale, hydra.scale);
  return created;
}

std::string C4dMvrLoader::createTropism(const std::string& name, int tropismMode, int tropismAxis,
                                        const mv::CurveParam& tropismStrength) {
  BaseObject* object = BaseObject::Alloc(ID_TROPISM_OBJECT);
  if (!object) return {};
  object->SetName(name);
  BaseContainer* data = object->GetDataInstance();
  data->SetLong(IdTropismMode, tropismMode);
  data->SetLong(IdTropismAxis, tropismAxis);
  setCurve(data, IdTropismStrength, tropismStrength);
  data->SetBool(IdTropismFollowGrowth, false);
  return registerObject(name, object);
}

std::string C4dMvrLoader::createCurvatureSpline(const std::string& name,
                                                const mv::MvrCurvatureRecord& curvature) {
  BaseObject* object = BaseObject::Alloc(ID_CURVATURE_SPLINE);
  if (!object) return {};
  object->SetName(name);
  BaseContainer* data = object->GetDataInstance();
  data->SetReal(IdCurvSteps, curvature.curvSteps);
  data->SetBool(IdNumberFractional, curvature.curvFractional);
  data->SetReal(IdCurvScaleZ, curvature.curvScaleZ);
  data->SetReal(IdCurvLength, curvature.curvLength);
  setCurve(data, IdCurvRotaX, curvature.curv_rota_x);
  setCurve(data, IdCurvRotaY, curvature.curv_rota_y);
  setCurve(data, IdCurvRotaZ, curvature.curv_rota_z);
  setCurve(data, IdCurvTranX, curvature.curv_tran_x);
  setCurve(data, IdCurvTranY, curvature.curv_tran_y);
  setCurve(data, IdCurvTranZ, curvature.curv_tran_z);
  return registerObject(name, object);
}

std::string C4dMvrLoader::createVariation(const std::string& name, int kind, int seed, int index) {
  const std::string created = createObject(ID_VARIATION_OBJECT, mv::MvrHeader(name));
  if (created.empty()) return {};
  BaseContainer* data = find(created)->GetDataInstance();
  data->SetLong(IdVariationKind, kind);
  data->SetLong(IdVariationSeed, seed);
  data->SetLong(IdVariationIndex, index);
  return created;
}

// A lattice of n x n x n points as the classic hyperpatch lists them (x fastest, then z, then y,
// in a unit cube), turned into the grid's order (x, then y, then z) in the host's axes.
std::string C4dMvrLoader::createDeformGrid(const mv::MvrHeader& header,
                                           const std::vector<mv::Vector3>& points) {
  int n = 0;
  while (n < 6 && static_cast<size_t>(n * n * n) < points.size()) ++n;
  // Other lengths have no grid size: the grid keeps its rest shape of two points a side.
  const bool lattice = n >= 2 && static_cast<size_t>(n * n * n) == points.size();
  if (!lattice) n = 2;
  const std::string created = createObject(Offd, header);
  if (created.empty()) return {};
  auto* grid = static_cast<PointObject*>(find(created));
  BaseContainer* data = grid->GetDataInstance();
  data->SetLong(IdGridX, n);
  data->SetLong(IdGridY, n);
  data->SetLong(IdGridZ, n);
  data->SetVector(IdGridSize, Vector(1.0));
  if (!grid->ResizePoints(n * n * n)) return created;
  grid->Message(MSG_UPDATE);
  Vector* out = grid->GetPointW();
  for (int i = 0; i < n; ++i) {
    for (int j = 0; j < n; ++j) {
      for (int k = 0; k < n; ++k) {
        mv::Vector3 p{i / (n - 1.0), k / (n - 1.0), j / (n - 1.0)};
        if (lattice) p = points[i + k * n + j * n * n];
        out[i + j * n + k * n * n] = Vector(p.x - 0.5, p.z - 0.5, p.y - 0.5);
      }
    }
  }
  grid->Message(MSG_POINTS_CHANGED);
  grid->Message(MSG_UPDATE);
  return created;
}

std::unique_ptr<mv::BaseNode> C4dMvrLoader::profileNodeOf(const std::string& name) {
  BaseObject* object = find(name);
  if (!object || !(object->GetInfo() & OBJECT_ISSPLINE)) return nullptr;
  SplineObject* spline = object->GetRealSpline();
  LineObject* line = spline ? spline->GetLineObject(document, 1.0, nullptr) : nullptr;
  if (!line) return nullptr;
  profileLines_.push_back(line);
  // The matrix lies a quarter turn back, in library axes.
  return std::make_unique<C4dObject>(line, MatrixRotX(-mv::kPi / 2) * object->GetMl());
}

void C4dMvrLoader::fitDeformGrids(BaseObject* object, BaseDocument* document) {
  for (BaseObject* child = object->GetDown(); child; child = child->GetNext())
    fitDeformGrids(child, document);
  if (object->GetType() != Offd) return;
  Box box;
  for (BaseObject* child = object->GetDown(); child; child = child->GetNext()) {
    BaseObject* state = currentStateOf(child, document);
    if (!state) return;
    // The state carries the child's own matrix: its points stand in the deformer's frame.
    extendByState(box, state, state->GetMl());
    BaseObject::Free(state);
  }
  if (!box.positive()) return;
  box.low -= Vector(0.0001);
  box.high += Vector(0.0001);
  const Vector size = box.high - box.low;
  const double d = std::fmax(size.x, std::fmax(size.y, size.z));
  auto* grid = static_cast<PointObject*>(object);
  grid->GetDataInstance()->SetVector(IdGridSize, Vector(d));
  Vector* points = grid->GetPointW();
  for (Int32 i = 0; i < grid->GetPointCount(); ++i) points[i] = points[i] * d - Vector(d / 2);
  grid->Message(MSG_UPDATE);
  Matrix ml = object->GetMl();
  ml.off = ml * ((box.low + box.high) / 2);
  object->SetMl(ml);
}
