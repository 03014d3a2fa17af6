#include "viewer/SceneWriter.h"

#include <Inventor/SbName.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/fields/SoField.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/nodes/SoDepthBuffer.h>
#include <Inventor/nodes/SoMarkerSet.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTexture2.h>
#include <Inventor/nodes/SoTransparencyType.h>

#include "host/general/DisplayBitmaps.h"
#include "host/model/CameraStation.h"
#include "host/model/ImportedSurface.h"
#include "host/model/ObjectName.h"
#include "host/model/ObjectPoint.h"
#include "host/model/PointMesh.h"
#include "nodes/TarnOI.h"
#include "nodes/framework/SoBackground.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/framework/TarnOIOverlaySeparator.h"
#include "nodes/framework/TarnOISeparator.h"
#include "viewer/WholeFile.h"

#include <array>
#include <cstdio>
#include <utility>

namespace {

class Converter {
public:
  SoNode* convert(SoNode* node) {
    if (const auto found = converted.find(node); found != converted.end()) {
      return found->second.get();
    }
    SoNode* result = convertNew(node);
    converted.emplace(node, NodeRef<SoNode>(result));
    return result;
  }

private:
  SoNode* convertNew(SoNode* node) {
    if (node->isOfType(SoMarkerSet::getClassTypeId())) {
      return withStandardMarkers(static_cast<SoMarkerSet*>(node));
    }
    const SoType standard = standardType(node->getTypeId());
    const bool isGroup = node->isOfType(SoGroup::getClassTypeId());
    if (!isGroup && standard == node->getTypeId()) return node;
    auto* copy = static_cast<SoNode*>(standard.createInstance());
    copyFields(*node, *copy);
    const std::string name = nameOf(node);
    if (!name.empty()) copy->setName(SbName(name.c_str()));
    if (isGroup) {
      auto* from = static_cast<SoGroup*>(node);
      auto* to = static_cast<SoGroup*>(copy);
      for (int i = 0; i < from->getNumChildren(); ++i) {
        SoNode* child = from->getChild(i);
        if (isWritten(*child)) to->addChild(convert(child));
      }
    }
    return copy;
  }

  static bool isWritten(const SoNode& node) {
    // A background is the business of the program that shows the scene, and Inventor has no
    // node for one. The others are Coin's own, unknown to other implementations of Inventor,
    // and what lies on the screen, which belongs to the picture that it was drawn for.
    for (const SoType& left :
         {SoBackground::getClassTypeId(), SoDepthBuffer::getClassTypeId(),
          SoTransparencyType::getClassTypeId(), TarnOIOverlaySeparator::getClassTypeId()}) {
      if (node.isOfType(left)) return false;
    }
    return true;
  }

  // The nearest ancestor that is not this library's own, and can be made.
  static SoType standardType(SoType type) {
    for (const TarnOI::ClassEntry& entry : TarnOI::classes()) {
      if (entry.getClassTypeId() == type) return standardType(type.getParent());
    }
    return type;
  }

  // Fields by name: a derived class has those of its parent and no others here.
  static void copyFields(const SoNode& from, SoNode& to) {
    SoFieldList fields;
    to.getFields(fields);
    for (int i = 0; i < fields.getLength(); ++i) {
      SbName name;
      if (!to.getFieldName(fields[i], name)) continue;
      const SoField* source = from.getField(name);
      if (!source || source->isDefault()) continue;
      // The picture comes from the file; written besides, it would be there twice.
      if (to.isOfType(SoTexture2::getClassTypeId()) && name == SbName("image") &&
          !static_cast<const SoTexture2&>(from).filename.isDefault()) {
        continue;
      }
      fields[i]->copyFrom(*source);
      fields[i]->setIgnored(source->isIgnored());
    }
  }

  // Other programs know nothing of the symbols that were added to Coin's table here.
  static SoNode* withStandardMarkers(SoMarkerSet* markers) {
    const tarn::DisplayBitmaps standard;
    const tarn::DisplayBitmaps& own = tarn::gSymbols;
    const std::array<std::pair<int, int>, 5> table = {
        std::pair(own.controlPoint, standard.controlPoint),
        std::pair(own.secondState, standard.secondState),
        std::pair(own.codedTarget, standard.codedTarget),
        std::pair(own.subPixel, standard.subPixel), std::pair(own.point, standard.point)};
    auto* copy = new SoMarkerSet;
    copyFields(*markers, *copy);
    for (int i = 0; i < copy->markerIndex.getNum(); ++i) {
      for (const auto& [from, to] : table) {
        if (markers->markerIndex[i] == from) copy->markerIndex.set1Value(i, to);
      }
    }
    return copy;
  }

  static std::string nameOf(SoNode* node) {
    if (node->isOfType(TarnOILayerSeparator::getClassTypeId())) {
      const tarn::ObjectName* layer = static_cast<TarnOILayerSeparator*>(node)->GetLayer();
      return layer ? SceneWriter::legalName(layer->GetName().str()) : std::string();
    }
    if (node->isOfType(TarnOISeparator::getClassTypeId())) {
      tarn::VObject* object = static_cast<TarnOISeparator*>(node)->GetTarnObject();
      if (!object) return {};
      if (object->isA(tarn::CameraStationCls)) {
        return SceneWriter::legalName("Station_" +
                                      static_cast<tarn::CameraStation*>(object)->GetName().str());
      }
      if (object->isA(tarn::ObjectPointCls)) {
        return SceneWriter::legalName(
            "Point_" + std::to_string(static_cast<tarn::ObjectPoint*>(object)->GetNumber()));
      }
      if (object->isA(tarn::PointMeshCls)) {
        return SceneWriter::legalName("Mesh_" +
                                      static_cast<tarn::PointMesh*>(object)->GetName().str());
      }
      if (object->isA(tarn::ImportedSurfaceCls)) {
        return SceneWriter::legalName("Surface_" +
                                      static_cast<tarn::ImportedSurface*>(object)->GetName().str());
      }
      return {};
    }
    return node->getName().getString();
  }

  std::unordered_map<SoNode*, NodeRef<SoNode>> converted;
};

}  // namespace

NodeRef<SoNode> SceneWriter::toStandardNodes(SoNode* scene) {
  Converter converter;
  return NodeRef<SoNode>(converter.convert(scene));
}

void SceneWriter::write(SoNode* scene, const std::string& fileName) {
  const NodeRef<SoNode> standard = toStandardNodes(scene);
  WholeFile::write(fileName, "scene", [&standard](std::FILE* file) {
    SoOutput output;
    output.setFilePointer(file);
    output.setHeaderString(SoOutput::getDefaultASCIIHeader());
    SoWriteAction action(&output);
    action.apply(standard.get());
    return true;  // the stream knows what went wrong
  });
}

std::string SceneWriter::legalName(const std::string& text) {
  // Fewer than Inventor allows: what every reader of Inventor files agrees on.
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const auto isLetter = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
  };
  std::string name;
  if (text.empty() || isDigit(text.front())) name += '_';
  for (const char c : text) name += isLetter(c) || isDigit(c) ? c : '_';
  return name;
}
