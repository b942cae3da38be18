// DocumentReader: builds a document from the JSON of a document file (see DocumentFile),
// taking what it can and telling on the console what it skips.
#pragma once

#include <map>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/HostTypes.h"

class BaseContainer;
class BaseDocument;
class BaseList2D;
class BaseMaterial;
class BaseObject;
class BaseTag;
class GeData;

class DocumentReader {
 public:
  using Json = nlohmann::ordered_json;
  // Null with `error` set when the JSON is no document of a version this program reads.
  BaseDocument* read(const Json& file, String& error);

 private:
  struct PendingLink {
    Int64 node;               // unique id of the node whose container holds the link
    std::vector<Int32> path;  // container ids down to the link
    Json target;
  };

  void readSettings(const Json& settings);
  BaseMaterial* readMaterial(const Json& record);
  BaseObject* readObject(const Json& record, int depth);
  BaseTag* readTag(const Json& record, BaseObject* op);
  void readNode(const Json& record, BaseList2D* node, Int32 classId);
  void readParameters(const Json& params, BaseContainer& container, Int32 classId, BaseList2D* node,
                      std::vector<Int32> path);
  bool readValue(const Json& json, const String& kind, GeData& value, BaseList2D* node,
                 const std::vector<Int32>& path);
  bool readCustom(const Json& json, GeData& value);
  bool readGeometry(const Json& record, BaseObject* op);
  void readTagData(const Json& record, BaseTag* tag);
  BaseList2D* resolve(const Json& target) const;
  void resolveLinks();
  void warn(const String& line);

  BaseDocument* doc_ = nullptr;
  std::map<Int64, BaseList2D*> byFileId_;
  std::vector<PendingLink> links_;
  Json active_;
  int warnings_ = 0;
  bool linksAllowed_ = true;
};
