// The subcommands of morvo. Each add...Command function registers one subcommand on the app;
// its callback stores the process exit code in result. Callbacks may throw: main turns an
// exception into a message and a non-zero exit.
#pragma once

#include <CLI/CLI.hpp>

struct CommandResult {
  int exitCode = 0;
};

// morvo curve: prints a curve's values as CSV.
void addCurveCommand(CLI::App& app, CommandResult& result);
// morvo curve-edit plant.morvo PATH.parameter --events FILE: edits played on a document's curve.
void addCurveEditCommand(CLI::App& app, CommandResult& result);
void addInfoCommand(CLI::App& app, CommandResult& result);
// primitives -o FILE: a tube, a star outline and a quad mesh through the polygon stream, written
// as OBJ or binary glTF. Hidden from the help.
void addPrimitivesCommand(CLI::App& app, CommandResult& result);
// morvo render FILE.mvr -o OUT.obj|OUT.glb: a scene file rendered through the classic scene graph.
void addRenderCommand(CLI::App& app, CommandResult& result);
// morvo grass SURFACE -o OUT.glb|OUT.obj [--count --segments --length --variation --noise
// --clump]: a lawn grown by the grass tag on a surface from a document, an OBJ or a glTF file.
void addGrassCommand(CLI::App& app, CommandResult& result);
// morvo about: the About dialog's texts; morvo docs-url: the web documentation's address.
void addAboutCommand(CLI::App& app, CommandResult& result);
void addDocsUrlCommand(CLI::App& app, CommandResult& result);
// morvo import FILE.mvr -o FILE.morvo: a scene file opened as a document, in polygon or generator
// mode.
void addImportCommand(CLI::App& app, CommandResult& result);
// morvo new KIND -o FILE.morvo: a document with one growth object as the menu makes it.
void addNewCommand(CLI::App& app, CommandResult& result);
// morvo tree FILE.morvo: the objects of a document with their kinds and roles.
void addTreeCommand(CLI::App& app, CommandResult& result);
// morvo get FILE.morvo PATH.parameter...: parameters by name.
void addGetCommand(CLI::App& app, CommandResult& result);
// morvo set FILE.morvo PATH.parameter=VALUE...: changes parameters by name and saves.
void addSetCommand(CLI::App& app, CommandResult& result);
