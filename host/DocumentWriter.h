// DocumentWriter: turns a document into the JSON of a document file (see DocumentFile).
#pragma once

#include <map>

#include <nlohmann/json.hpp>

#include "host/HostTypes.h"

class BaseContainer;
class BaseDocument;
class BaseList2D;
class BaseMaterial;
class BaseObject;
class BaseTag;
class GeData;

class DocumentWriter {
 public:
  using Json = nlohmann::ordered_json;
  Json write(BaseDocument* doc);

 private:
  void collectLinkTargets(const BaseContainer& container);
  void collectTree(BaseObject* op);
  Json node(const BaseList2D* node, Int32 classId);
  Json parameters(const BaseContainer& container, Int32 classId);
  Json value(const GeData& data, const String& kind);
  Json object(BaseObject* op);
  Json geometry(BaseObject* op);
  Json tag(BaseTag* tag);
  Json material(BaseMaterial* material);

  std::map<Int64, int> fileIds_;  // unique id of each link target to its id in the file
};
