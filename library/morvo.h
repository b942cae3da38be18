// Morvo: a procedural plant modeller. This umbrella header brings in the whole public library:
//   core      node protocol, parameter sets, messages and progress
//   curves    expressions, curve parameters, integration, random numbers and noise
//   geometry  meshes, the geometry stream, polygon output and triangulation, splines
//   growth    the growth nodes: Branch, Phyllotaxis, Hydra, Variation, the spline modifiers
//             Tropism and Deviation, and running a node without a host
// Link the CMake target Morvo::library.
#pragma once

// core
#include "BaseNode.h"
#include "ChildRole.h"
#include "EHierarchyHelp.h"
#include "Matrix4.h"
#include "MessageHandler.h"
#include "MessageSink.h"
#include "ParameterSet.h"
#include "Placement.h"
#include "PlacementGroup.h"
#include "ProgressHandler.h"
#include "ProgressSink.h"
#include "Simple.h"
#include "Vector3.h"

// curves
#include "CurveParam.h"
#include "CurveParamIntegration.h"
#include "CurvePoint.h"
#include "ExprConstant.h"
#include "ExprFunction.h"
#include "ExprOpNeg.h"
#include "ExprOperator.h"
#include "ExprParenthesis.h"
#include "ExprVariable.h"
#include "Expression.h"
#include "ExpressionAtom.h"
#include "Integration.h"
#include "MersenneTwister.h"
#include "Noise.h"
#include "ParameterSetData.h"
#include "ValueNoise.h"
#include "VariableScope.h"

// geometry
#include "CurvatureSpline.h"
#include "EditableMesh.h"
#include "GeomAttributes.h"
#include "GeomCommand.h"
#include "GeomNormal.h"
#include "GeomPoint4.h"
#include "GeomPrimitiveWriter.h"
#include "IMesh.h"
#include "MeshData.h"
#include "MeshPolygon.h"
#include "OBaseGeomStream.h"
#include "OGeomStream.h"
#include "OMesh.h"
#include "OMeshDummy.h"
#include "OPolygonStream.h"
#include "PolylineSpline.h"
#include "Spline.h"
#include "SplineData.h"
#include "SplineFrame.h"
#include "TexturePolygon.h"
#include "Triangulation.h"

// growth
#include "Branch.h"
#include "Deviation.h"
#include "Hydra.h"
#include "NodeRun.h"
#include "Phyllotaxis.h"
#include "PhyllotaxisIntegration.h"
#include "SplineNode.h"
#include "Tropism.h"
#include "Variation.h"
