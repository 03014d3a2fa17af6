#pragma once

#include <Inventor/SoType.h>
#include <Inventor/fields/SoFieldData.h>

#include "nodes/TarnOIExport.h"

/// The registration of one node class: its type, its field data, its parent's field
/// data and how many instances were made. The logic that Coin's SO_NODE macros repeat
/// in every class stands here once; TARNOI_NODE_HEADER and TARNOI_NODE_SOURCE put a
/// thin layer of static members over it.
class TARNOI_EXPORT NodeRegistration {
public:
  using ParentFieldData = const SoFieldData** (*)();

  /// @param className       the class's name, also its type's and its source file's
  /// @param parentName      the parent type's name, as SoType::fromName finds it
  /// @param parentFieldData where the parent class keeps its field data
  /// @param factory         makes an instance; null for an abstract class
  constexpr NodeRegistration(const char* className, const char* parentName,
                             ParentFieldData parentFieldData, SoType::instantiationMethod factory)
      : className(className),
        parentName(parentName),
        parentFieldDataOf(parentFieldData),
        factory(factory) {}

  /// Enters the class into Coin's type system. Reports a second call, which leaves the
  /// registration as it is, and a parent that is not registered, which leaves the class
  /// unregistered. Coin's own shutdown (SoDB::finish) cleans up by `cleanUp`.
  /// @param cleanUp the class's clean-up function
  /// @param release lets go, at every clean-up, of nodes that the class itself holds; it
  ///        must be safe to call twice
  void init(void (*cleanUp)(), void (*release)() = nullptr);

  /// Takes the class out of Coin's type system, so that `init` may run again. Safe to
  /// call twice, and before or after the clean-up of parent and child classes.
  void cleanUp();

  /// What every constructor does first, after its parent's: under Coin's static-data
  /// lock counts the instance, reports a class that is not registered, and makes the
  /// class's field data on first use. Returns these, for fields to be added.
  SoFieldData* construct();

  SoType type() const { return classType; }
  const SoFieldData* getFieldData() const { return fieldData; }
  const SoFieldData** getFieldDataPtr() { return const_cast<const SoFieldData**>(&fieldData); }
  unsigned int getNumInstances() const { return instances; }

private:
  const char* className;
  const char* parentName;
  ParentFieldData parentFieldDataOf;
  SoType::instantiationMethod factory;
  SoType classType{};
  const SoFieldData** parentFieldData = nullptr;
  SoFieldData* fieldData = nullptr;
  unsigned int instances = 0;
  void (*releaseShared)() = nullptr;
};

/// Static and virtual members that every node class has, to stand first in the class:
/// TARNOI_NODE_HEADER, or TARNOI_ABSTRACT_NODE_HEADER in a class of which no instances are
/// made.
#define TARNOI_ABSTRACT_NODE_HEADER(Class)          \
public:                                             \
  static void initClass();                          \
  static void CleanUpInitClass();                   \
  static SoType getClassTypeId();                   \
  SoType getTypeId() const override;                \
                                                    \
protected:                                          \
  static const SoFieldData** getFieldDataPtr();     \
  const SoFieldData* getFieldData() const override; \
                                                    \
private:                                            \
  static void atexit_cleanup();                     \
  static NodeRegistration registration

#define TARNOI_NODE_HEADER(Class) \
public:                           \
  static void* createInstance();  \
  TARNOI_ABSTRACT_NODE_HEADER(Class)

/// What the two macros for source files share; classes use one of those.
#define TARNOI_NODE_SOURCE_WITH_FACTORY_(Class, Parent, factory)                          \
  constinit NodeRegistration Class::registration{                                         \
      #Class, #Parent, [] { return Parent::getFieldDataPtr(); }, factory};                \
  void Class::CleanUpInitClass() { registration.cleanUp(); }                              \
  void Class::atexit_cleanup() { registration.cleanUp(); }                                \
  SoType Class::getClassTypeId() { return registration.type(); }                          \
  SoType Class::getTypeId() const { return registration.type(); }                         \
  const SoFieldData** Class::getFieldDataPtr() { return registration.getFieldDataPtr(); } \
  const SoFieldData* Class::getFieldData() const { return registration.getFieldData(); }  \
  static_assert(true)

/// The definitions that belong to the headers above.
#define TARNOI_ABSTRACT_NODE_SOURCE(Class, Parent) \
  TARNOI_NODE_SOURCE_WITH_FACTORY_(Class, Parent, nullptr)

#define TARNOI_NODE_SOURCE(Class, Parent)             \
  void* Class::createInstance() { return new Class; } \
  TARNOI_NODE_SOURCE_WITH_FACTORY_(Class, Parent, &Class::createInstance)

/// To stand first in every constructor. Coin's SO_NODE_ADD_FIELD, which expects `fieldData`,
/// may follow.
#define TARNOI_NODE_CONSTRUCTOR()                                           \
  [[maybe_unused]] SoFieldData* const fieldData = registration.construct(); \
  this->isBuiltIn = FALSE
