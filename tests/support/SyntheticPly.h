#pragma once

#include <initializer_list>
#include <ostream>
#include <string>
#include <vector>

/// A PLY file that is described once and written in any form, by code that has nothing in
/// common with the reader.
class SyntheticPly {
public:
  enum class Form { eText, eLittleEndian, eBigEndian };

  /// A value of a record: one number, or a list of them.
  struct Value {
    // NOLINTBEGIN(google-explicit-constructor): records are written as plain numbers
    Value(double number) : numbers{number} {}
    Value(int number) : numbers{static_cast<double>(number)} {}
    // NOLINTEND(google-explicit-constructor)
    Value(std::initializer_list<double> list) : numbers(list) {}
    std::vector<double> numbers;
  };
  using Record = std::vector<Value>;

  /// An element with these properties, as they stand in the header: "float x", "list uchar int
  /// vertex_indices".
  void element(const std::string& name, const std::vector<std::string>& properties);
  /// One record more of the element that was added last.
  void record(const Record& values) { elements.back().records.push_back(values); }
  void records(const std::vector<Record>& all) {
    for (const Record& one : all) record(one);
  }
  /// A line more in the header, ahead of the elements.
  void headerLine(const std::string& line) { headerLines.push_back(line); }

  std::string written(Form form) const;
  std::string header(Form form) const;

  /// The ends of lines, in the header and in text.
  std::string lineEnd = "\n";

  friend void PrintTo(Form form, std::ostream* out) { *out << nameOf(form); }
  static const char* nameOf(Form form);

private:
  struct Element {
    std::string name;
    std::vector<std::string> properties;
    std::vector<Record> records;
  };

  std::vector<std::string> headerLines;
  std::vector<Element> elements;
};
