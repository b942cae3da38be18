// morvo tree plant.morvo: the object hierarchy of a document, one object a line, indented by
// depth, with its kind and the role its parent gives it.
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "commands/Commands.h"
#include "commands/PluginSession.h"
#include "console/HostConsoleBridge.h"
#include "core/ChildRole.h"
#include "core/Simple.h"
#include "host/BaseDocument.h"
#include "host/BaseObject.h"
#include "host/DocumentFile.h"
#include "host/PluginRegistry.h"
#include "source/C4dParameterSet.h"

namespace {

std::string roleName(int role) {
  switch (role) {
    case mv::RoleProfile:
      return "profile";
    case mv::RolePath:
      return "path";
    case mv::RoleNodes:
      return "nodes";
    case mv::RoleEnd:
      return "end";
    case mv::RoleOther:
      return "other";
    default:
      return "unused";
  }
}

// The roles that object's node gives its children, or none when it has no node.
std::vector<int> childRoles(BaseObject* object, BaseDocument* document) {
  std::vector<int> roles;
  auto* node = dynamic_cast<mv::Simple*>(object->GetNodeData());
  if (node == nullptr || (object->GetInfo() & OBJECT_GENERATOR) == 0) return roles;
  int count = 0;
  for (BaseObject* child = object->GetDown(); child != nullptr; child = child->GetNext()) ++count;
  C4dParameterSet params(object, document);
  node->assignRoles(params, roles, count);
  return roles;
}

void printLevel(BaseObject* first, BaseDocument* document, const std::vector<int>& roles, int depth,
                std::ostream& out) {
  size_t index = 0;
  for (BaseObject* object = first; object != nullptr; object = object->GetNext(), ++index) {
    out << std::string(2 * depth, ' ') << object->GetName() << " ["
        << PluginRegistry::WordOf(object->GetType()) << "]";
    if ((object->GetInfo() & OBJECT_MODIFIER) != 0) {
      out << " modifier";
    } else if (index < roles.size()) {
      out << " " << roleName(roles[index]);
    }
    out << "\n";
    printLevel(object->GetDown(), document, childRoles(object, document), depth + 1, out);
  }
}

int printTree(const std::string& input) {
  if (!PluginSession::ready()) return 1;
  HostConsoleBridge console;
  std::unique_ptr<BaseDocument> document(DocumentFile::Load(Filename(input)));
  if (!document) return 1;
  printLevel(document->GetFirstObject(), document.get(), {}, 0, std::cout);
  return 0;
}

}  // namespace

void addTreeCommand(CLI::App& app, CommandResult& result) {
  CLI::App* command =
      app.add_subcommand("tree", "Print a document's objects with their kinds and roles");
  auto input = std::make_shared<std::string>();
  command->add_option("document", *input, "The document, .morvo")->required();
  command->callback([input, &result] { result.exitCode = printTree(*input); });
}
