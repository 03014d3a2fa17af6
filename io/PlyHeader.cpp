#include "io/PlyHeader.h"

#include "io/ReadError.h"
#include "io/TextFields.h"

#include <algorithm>
#include <set>

namespace tarn {

namespace {

// Takes the lines between "ply" and "end_header".
class HeaderLines {
public:
  explicit HeaderLines(PlyHeader& filled) : _header(filled) {}

  // Returns false at the end of the header.
  bool take(const Place& place, std::string_view line) {
    TextFields fields(place, line);
    if (fields.atEnd()) return true;
    const std::string_view keyword = fields.word("a keyword");
    if (keyword == "comment" || keyword == "obj_info") return true;
    if (keyword == "format") {
      takeFormat(fields);
    } else if (keyword == "element") {
      takeElement(fields);
    } else if (keyword == "property") {
      takeProperty(fields);
    } else if (keyword == "end_header") {
      fields.expectEnd("the header");
      if (!_hasFormat) place.refuse("the end of the header", "a line with the format before it");
      return false;
    } else {
      place.refuse(quoted(keyword), "format, comment, obj_info, element, property or end_header");
    }
    return true;
  }

private:
  void takeFormat(TextFields& fields) {
    if (_hasFormat) fields.place().refuse("a second format", "one");
    _hasFormat = true;
    const std::string_view form = fields.word("a format");
    if (form == "ascii") {
      _header.form = PlyHeader::Form::eText;
    } else if (form == "binary_little_endian") {
      _header.form = PlyHeader::Form::eLittleEndian;
    } else if (form == "binary_big_endian") {
      _header.form = PlyHeader::Form::eBigEndian;
    } else {
      fields.place().refuse("the format " + quoted(form),
                            "ascii, binary_little_endian or binary_big_endian");
    }
    const std::string_view version = fields.word("the format's version");
    if (version != "1.0") fields.place().refuse("the version " + quoted(version), "1.0");
    fields.expectEnd("the format");
  }

  void takeElement(TextFields& fields) {
    PlyElement element;
    element.place = fields.place();
    element.name = fields.word("an element's name");
    element.count = fields.unsignedNumber("an element's number of records",
                                          std::numeric_limits<std::int64_t>::max());
    fields.expectEnd("the element");
    if (!_elementNames.insert(element.name).second) {
      element.place.refuse("the element " + quoted(element.name) + " again", "each element once");
    }
    _header.elements.push_back(std::move(element));
    _propertyNames.clear();
  }

  void takeProperty(TextFields& fields) {
    const Place& place = fields.place();
    if (_header.elements.empty()) place.refuse("a property", "an element before it");
    PlyProperty property;
    property.place = place;
    std::string_view type = fields.word("a property's type");
    if (type == "list") {
      const std::string_view countType = fields.word("the type of a list's length");
      property.countType = knownType(place, countType);
      if (!isInteger(*property.countType)) {
        place.refuse("a list's length of the type " + quoted(countType), "a type of integers");
      }
      type = fields.word("the type of a list's numbers");
    }
    property.type = knownType(place, type);
    property.name = fields.word("a property's name");
    fields.expectEnd("the property");
    PlyElement& element = _header.elements.back();
    if (!_propertyNames.insert(property.name).second) {
      place.refuse("the property " + quoted(property.name) + " again",
                   "each property of " + quoted(element.name) + " once");
    }
    element.properties.push_back(std::move(property));
  }

  static PlyType knownType(const Place& place, std::string_view name) {
    const std::optional<PlyType> type = plyType(name);
    if (!type) {
      place.refuse("the type " + quoted(name),
                   "char, uchar, short, ushort, int, uint, float or double, or int8 to float64");
    }
    return *type;
  }

  PlyHeader& _header;
  bool _hasFormat = false;
  std::set<std::string> _elementNames;
  std::set<std::string> _propertyNames;
};

}  // namespace

std::optional<std::size_t> PlyElement::find(std::string_view property) const {
  const auto found = std::ranges::find(properties, property, &PlyProperty::name);
  if (found == properties.end()) return std::nullopt;
  return static_cast<std::size_t>(found - properties.begin());
}

std::size_t PlyElement::smallestSize() const {
  std::size_t size = 0;
  for (const PlyProperty& property : properties) {
    size += sizeOf(property.countType.value_or(property.type));
  }
  return size;
}

bool PlyElement::hasLists() const { return std::ranges::any_of(properties, &PlyProperty::isList); }

PlyHeader PlyHeader::read(const std::string& file, std::string_view content) {
  PlyHeader header;
  TextLines lines(file, content);
  std::string_view line;
  if (!lines.next(line) || line != "ply") {
    throw ReadError::atLine(file, 1, quoted(line), "\"ply\", with which every PLY file begins");
  }
  HeaderLines taken(header);
  do {
    if (!lines.next(line)) {
      lines.place().refuse("the end of the file", "end_header after the header's last line");
    }
  } while (taken.take(lines.place(), line));
  header.size = content.size() - lines.left();
  header.lines = lines.place().at;
  return header;
}

}  // namespace tarn
