// morvo curve: evaluates a curve parameter at evenly spaced positions and prints u and the value
// as CSV, so that a curve can be inspected from the shell; with --png it also draws the curve as
// its editor shows it.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "commands/Commands.h"
#include "commands/CurvePicture.h"
#include "commands/EditScriptFile.h"
#include "curves/CurveParam.h"
#include "host/DrawingRaster.h"

namespace {

constexpr int kMaxCount = 10000000;

int pointType(const std::string& name) {
  const char* names[] = {"corner", "smooth", "mirrored", "free"};
  for (int type = mv::PointCorner; type <= mv::PointFree; ++type) {
    if (name == names[type]) return type;
  }
  throw CLI::ValidationError("unknown point type \"" + name +
                             "\" (corner, smooth, mirrored, free)");
}

// Empty when text is a whole finite number, else why not: nan, inf and 1e999 are refused.
std::string finiteNumberProblem(const std::string& text) {
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  if (text.empty() || end != text.c_str() + text.size()) return "not a number: \"" + text + "\"";
  if (!std::isfinite(value)) return "not a finite number: \"" + text + "\"";
  return {};
}

double number(const std::string& text) {
  const std::string problem = finiteNumberProblem(text);
  if (!problem.empty()) throw CLI::ValidationError(problem);
  return std::strtod(text.c_str(), nullptr);
}

// One point "x:y" or "x:y:type"; x 0 and 1 set the end points.
void addPoint(mv::CurveParam& curve, const std::string& text) {
  std::vector<std::string> fields;
  std::istringstream in(text);
  for (std::string field; std::getline(in, field, ':');) fields.push_back(field);
  if (fields.size() < 2 || fields.size() > 3) {
    throw CLI::ValidationError("a point is x:y or x:y:type, not \"" + text + "\"");
  }
  const double x = number(fields[0]);
  if (!(x >= 0.0 && x <= 1.0))
    throw CLI::ValidationError("point x outside 0 to 1: \"" + text + "\"");
  const int type = fields.size() == 3 ? pointType(fields[2]) : mv::PointCorner;
  const int before = curve.getPointCount();
  const int id = curve.addPoint(x, number(fields[1]), type);
  if (id >= 2 && curve.getPointCount() == before) {
    throw CLI::ValidationError("point \"" + text + "\" is outside 0 to 1 or too close to another");
  }
  if (id < 2 && type != mv::PointCorner && !curve.setPointType(id, type)) {
    throw CLI::ValidationError("an end point cannot be of type " + fields[2]);
  }
}

void printCurve(const mv::CurveParam& curve, int count) {
  std::cout << "u,value\n";
  char line[64];
  for (int i = 0; i < count; ++i) {
    const double u = static_cast<double>(i) / (count - 1);
    std::snprintf(line, sizeof line, "%.12g,%.12g\n", u, curve.evaluate(u));
    std::cout << line;
  }
}

// --png and the options of the picture; --unit as its name, into unitName.
void addPictureOptions(CLI::App* command, CurvePicture& picture, std::string& unitName) {
  command->add_option("--png", picture.path, "Also draw the curve as its editor does, to a PNG");
  command->add_option("--width", picture.width, "Width of the picture in pixels")
      ->check(CLI::Range(CurvePicture::kMinSize, DrawingRaster::kMaxSize))
      ->capture_default_str();
  command->add_option("--height", picture.height, "Height of the picture in pixels")
      ->check(CLI::Range(CurvePicture::kMinSize, DrawingRaster::kMaxSize))
      ->capture_default_str();
  command->add_option("--unit", unitName, "Unit of the values in the picture and the edits")
      ->check(CLI::IsMember({"none", "percent", "degree", "meter"}))
      ->capture_default_str();
  command->add_option("--select", picture.selection,
                      "Draw the point with this id selected (0 first, 1 last, inner from 3 on "
                      "in the order given)");
  command->add_option("--tag", picture.tag, "Draw the value tag of the point with this id");
}

}  // namespace

void addCurveCommand(CLI::App& app, CommandResult& result) {
  auto* command = app.add_subcommand(
      "curve", "Evaluate a curve at evenly spaced positions and print u,value as CSV");
  struct Options {
    std::string expression = "id";
    std::vector<std::string> points;
    double first = 0.0, last = 1.0;
    int count = 11;
    std::string events, unit = "none";
  };
  auto options = std::make_shared<Options>();
  auto picture = std::make_shared<CurvePicture>();
  command
      ->add_option("expression", options->expression,
                   "Expression over x (the drawn curve's value) and u (the position)")
      ->capture_default_str();
  command->add_option("-p,--point", options->points,
                      "A point x:y[:type], type corner (default), smooth, mirrored or free; "
                      "x 0 and 1 set the end points");
  const CLI::Validator finite([](std::string& text) { return finiteNumberProblem(text); },
                              "FINITE");
  command->add_option("--first", options->first, "Value of the first point")
      ->check(finite)
      ->capture_default_str();
  command->add_option("--last", options->last, "Value of the last point")
      ->check(finite)
      ->capture_default_str();
  command->add_option("-n,--count", options->count, "Number of positions")
      ->check(CLI::Range(2, kMaxCount))
      ->capture_default_str();
  command->add_option("--events", options->events,
                      "Play the edits of a script (size, click, drag, menu) on the curve first");
  addPictureOptions(command, *picture, options->unit);
  command->callback([options, picture, &result] {
    mv::CurveParam curve(0.0, 1.0, options->first, options->last, "id");
    if (!curve.setExpression(options->expression)) {
      throw CLI::ValidationError("not an expression: \"" + options->expression + "\"");
    }
    for (const std::string& point : options->points) addPoint(curve, point);
    picture->unit = curveUnitNamed(options->unit);
    if (!options->events.empty()) playEditScriptFile(curve, options->events, picture->unit);
    printCurve(curve, options->count);
    if (!picture->path.empty()) picture->draw(curve);
    result.exitCode = 0;
  });
}
