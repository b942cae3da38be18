// C4dMvrLoader: the host side of the conversion of a classic scene into growth objects, the
// generator import. Each create operation allocates a host object (a Branch, a Phyllotaxis, a
// Hydra, a Tropism, a curvature spline, a switch Variation, primitives, splines, meshes, deformer
// grids), names it, places it and registers it under a name unique within the load; insertUnder
// builds the hierarchy, turning an object linked a second time into an instance of it; addMaterial
// gives objects host materials with texture tags.
//
// A loader serves one load. Objects it created that never reached the document are freed with
// it; objects already in the document stay there, also after a load that failed late.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "host/Filename.h"
#include "scene/MvrToMv4Loader.h"

class BaseContainer;
class BaseDocument;
class BaseMaterial;
class BaseObject;
class TextureTag;

class C4dMvrLoader : public mv::MvrToMv4Loader {
 public:
  // The settings container of the scene loader; document null for a loader that only tests a
  // file. filterFlags bit 2 asks for materials.
  C4dMvrLoader(const Filename& file, BaseDocument* document, std::uint32_t filterFlags,
               BaseContainer* container);
  ~C4dMvrLoader() override;
  C4dMvrLoader(const C4dMvrLoader&) = delete;
  C4dMvrLoader& operator=(const C4dMvrLoader&) = delete;

  // A host material of the record: colour, specular and luminance channels, and with a texture
  // its image in the colour (and luminance) channel and its alpha channel when the image has one.
  // The texture is looked for beside the scene file. The caller owns the result.
  static BaseMaterial* makeHostMaterial(const Filename& file, const BaseContainer* container,
                                        const mv::MvrMaterial& material);
  // A texture tag on material with UVW projection, offset and scale; restricted to the polygon
  // selection of that name unless it is empty. The caller owns the result.
  static TextureTag* makeTextureTag(BaseMaterial* material, const mv::Vector3& offset,
                                    const mv::Vector3& scale, const std::string& selection);
  // Fits every deformer grid in the tree below (and including) object to the bounding box of what
  // stands below it, children before parents.
  static void fitDeformGrids(BaseObject* object, BaseDocument* document);

  bool setFrames(int frames) override;
  bool setBackground(float red, float green, float blue) override;
  bool addMaterial(const std::string& object, const mv::MvrMaterial& material,
                   const mv::Vector3& textureScale, const mv::Vector3& textureOffset,
                   int materialIndex) override;
  bool insertUnder(const std::string& object, const std::string& parent) override;

  std::string createMesh(const std::string& name, int kind, const mv::Matrix4& matrix,
                         mv::IMesh& mesh, bool smooth) override;
  std::string createSpline(const std::string& name, int kind, const mv::Matrix4& matrix,
                           int interpolate, int subdivision, const mv::Spline& spline) override;
  std::string createBox(const std::string& name, const mv::Matrix4& matrix, double size,
                        int resolution) override;
  std::string createCone(const std::string& name, const mv::Matrix4& matrix, double height,
                         double radius, int slices, int stacks, int third) override;
  std::string createCylinder(const std::string& name, const mv::Matrix4& matrix, double radius,
                             double height, int resolution) override;
  std::string createSphere(const std::string& name, const mv::Matrix4& matrix, double radius,
                           int resolution) override;
  std::string createPlane(const std::string& name, const mv::Matrix4& matrix, int facing,
                          double size, int resolution) override;
  std::string createDisk(const std::string& name, const mv::Matrix4& matrix, double radius,
                         int resolution) override;
  std::string createCircle(const std::string& name, const mv::Matrix4& matrix, double radius,
                           int points) override;
  std::string createArc(const std::string& name, double radius, double start, double end,
                        double offset) override;
  std::string createAttractorPrim(const std::string& name, const mv::Matrix4& matrix, double a,
                                  double b, int mode) override;
  std::string createVariation(const std::string& name, int kind, int seed, int index) override;

  std::string createNull(const mv::MvrHeader& header) override;
  std::string createBranch(const mv::MvrHeader& header, const mv::MvrBranchRecord& branch) override;
  std::string createPhyllotaxis(const mv::MvrHeader& header,
                                const mv::MvrPhyllotaxisRecord& phyllotaxis) override;
  std::string createHydra(const mv::MvrHeader& header, const mv::MvrHydraRecord& hydra) override;
  std::string createTropism(const std::string& name, int tropismMode, int tropismAxis,
                            const mv::CurveParam& tropismStrength) override;
  std::string createCurvatureSpline(const std::string& name,
                                    const mv::MvrCurvatureRecord& curvature) override;
  std::string createDeformGrid(const mv::MvrHeader& header,
                               const std::vector<mv::Vector3>& points) override;
  std::unique_ptr<mv::BaseNode> profileNodeOf(const std::string& name) override;

  BaseDocument* document;
  BaseContainer* container;
  Filename file;
  std::uint32_t filterFlags;
  std::map<std::string, BaseObject*> objects;  // every object created so far, by created name
  std::set<std::string> insertedNames;         // objects that stand somewhere in the document

 private:
  // Allocates an object of type with the header's visibility, name, matrix, life span and
  // phong, and registers it; the empty name on failure.
  std::string createObject(int type, const mv::MvrHeader& header);
  // Registers object under name, or name followed by a counter from 1 when name is taken; the
  // object keeps the name it was given.
  std::string registerObject(const std::string& name, BaseObject* object);
  // A named primitive with its matrix, registered; null when the type cannot be allocated.
  BaseObject* allocatePrimitive(int type, const std::string& name, const mv::Matrix4& matrix);
  std::string registerPrimitive(BaseObject* object, const std::string& name);
  BaseObject* find(const std::string& name) const;
  BaseObject* instanceOf(BaseObject* object);

  std::map<std::string, int> nextCounter_;
  std::vector<BaseObject*>
      profileLines_;  // line objects behind profile nodes, freed with the loader
};
