#include "source/CurveStrings.h"

#include <map>

#include "host/GeResource.h"

std::string CurveStrings::text(int32_t number) {
  const std::string loaded = GeLoadString(number);
  return loaded.empty() ? builtIn(number) : loaded;
}

std::string CurveStrings::builtIn(int32_t number) {
  static const std::map<int32_t, const char*> texts = {
      {10028, "Curve"},
      {10030, "Y"},
      {10032, "Maximum"},
      {10034, "Minimum"},
      {10035, "Start Y"},
      {10036, "End Y"},
      {10037, "Start Type"},
      {10038, "End Type"},
      {10039, "Type"},
      {10041, "End In X"},
      {10042, "In X"},
      {10044, "End In Y"},
      {10045, "In Y"},
      {10046, "Start Out X"},
      {10048, "Out X"},
      {10049, "Start Out Y"},
      {10051, "Out Y"},
      {10053, "Expression"},
      {10065, "X"},
      {10067, "Y"},
      {10069, "Min"},
      {10071, "Max"},
      {10073, "f(x) ="},
      {10074, "Delete Point"},
      {10075, "Set Value"},
      {10089, "Add Point"},
      {10090, "Corner Point"},
      {10091, "Smooth Point"},
      {10092, "Mirrored Point"},
      {10093, "Free Point"},
      {10094, "Point Type"},
      {10095, "Corner"},
      {10096, "Smooth"},
      {10097, "Mirrored"},
      {10098, "Free"},
      {10099, "Expression to Points"},
      {10100, "Fixed Limits"},
      {10101, "Both"},
      {10102, "Upper"},
      {10103, "Lower"},
      {10104, "None"},
      {10107, "Fit Limits"},
  };
  const auto found = texts.find(number);
  return found == texts.end() ? std::string() : found->second;
}
