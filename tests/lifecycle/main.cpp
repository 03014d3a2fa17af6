// Registration, clean-up and Coin's own start and shutdown, in every order that a host may
// choose. Each scenario needs a process of its own, for it ends Coin.
//
//   tarn_lifecycle SCENARIO     exit status 0 when everything held

#include <Inventor/SbViewportRegion.h>
#include <Inventor/SoDB.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/general/assertError.h"
#include "nodes/TarnOI.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISearchAction.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

int failures = 0;

void check(bool holds, const std::string& what) {
  if (holds) return;
  ++failures;
  std::fprintf(stderr, "does not hold: %s\n", what.c_str());
}

using Reports = std::vector<std::pair<std::string, std::string>>;
Reports reports;

void expectNoReports(const std::string& when) {
  for (const auto& [condition, file] : std::exchange(reports, {})) {
    check(false, when + ": no report, but " + file + " reports " + condition);
  }
}

std::vector<TarnOI::ClassEntry> table() {
  const auto classes = TarnOI::classes();
  return {classes.begin(), classes.end()};
}

bool isRegistered(const TarnOI::ClassEntry& entry) {
  return entry.getClassTypeId() != SoType::badType();
}

void expectRegistered(bool registered, const std::string& when) {
  for (const TarnOI::ClassEntry& entry : table()) {
    check(
        isRegistered(entry) == registered,
        std::string(entry.name) + (registered ? " is registered " : " is not registered ") + when);
  }
}

// Lets the actions of Coin and ours run over an instance of every class.
void traverseInstances() {
  auto root = makeNode<SoSeparator>();
  for (const TarnOI::ClassEntry& entry : table()) {
    const SoType type = entry.getClassTypeId();
    check(SoType::fromName(entry.name) == type, std::string(entry.name) + " is found by its name");
    if (!type.canCreateInstance()) continue;
    auto* node = static_cast<SoNode*>(type.createInstance());
    check(node->getTypeId() == type, std::string(entry.name) + " makes instances of itself");
    root->addChild(node);
  }
  root->addChild(new SoCube);

  TarnOISearchAction search;
  search.setInterest(SoSearchAction::ALL);
  search.apply(root.get());
  check(search.getPaths().getLength() > 0, "unbound nodes are found");

  const SbViewportRegion viewport(100, 100);
  SoGetBoundingBoxAction box(viewport);
  box.apply(root.get());
  check(!box.getBoundingBox().isEmpty(), "the cube is measured");
  SoRayPickAction pick(viewport);
  pick.setRay(SbVec3f(0.1F, 0.2F, 10), SbVec3f(0, 0, -1));
  pick.apply(root.get());
  check(pick.getPickedPoint() != nullptr, "the cube is picked");
}

// Makes, traverses and destroys an instance of every class.
void use() {
  traverseInstances();
  // Layers and textures without a dictionary say so when they go.
  std::erase_if(reports, [](const auto& report) { return report.first == "tarnoi_searchDict"; });
  expectNoReports("in use");
}

// One of the orders in which no class comes before its parent.
std::vector<TarnOI::ClassEntry> legalOrder(std::mt19937& random) {
  std::vector<TarnOI::ClassEntry> left = table();
  std::vector<TarnOI::ClassEntry> order;
  std::ranges::shuffle(left, random);
  while (!left.empty()) {
    const auto next = std::ranges::find_if(left, [&](const TarnOI::ClassEntry& entry) {
      return std::ranges::none_of(left, [&](const TarnOI::ClassEntry& other) {
        return std::strcmp(other.name, entry.parent) == 0;
      });
    });
    order.push_back(*next);
    left.erase(next);
  }
  return order;
}

void initialise(const std::vector<TarnOI::ClassEntry>& order) {
  for (const TarnOI::ClassEntry& entry : order) entry.initClass();
}

void cleanUp(const std::vector<TarnOI::ClassEntry>& order) {
  for (const TarnOI::ClassEntry& entry : order) entry.cleanUpInitClass();
}

const std::map<std::string, std::function<void()>> scenarios = {
    {"FinishWithoutCleanUp",
     [] {
       SoDB::init();
       TarnOI::initClasses();
       use();
       SoDB::finish();
       expectRegistered(false, "after Coin's shutdown");
     }},
    {"FinishWithoutCleanUpOrUse",
     [] {
       SoDB::init();
       TarnOI::initClasses();
       SoDB::finish();
       expectRegistered(false, "after Coin's shutdown");
     }},
    {"EndWithoutFinish",
     [] {
       SoDB::init();
       TarnOI::initClasses();
       use();
     }},
    {"CleanUpChildrenFirst",
     [] {
       SoDB::init();
       for (int round = 0; round < 2; ++round) {
         initialise(table());
         use();
         TarnOI::cleanUpClasses();
         expectRegistered(false, "after the clean-up");
       }
       SoDB::finish();
     }},
    {"CleanUpParentsFirst",
     [] {
       SoDB::init();
       for (int round = 0; round < 2; ++round) {
         initialise(table());
         use();
         cleanUp(table());
         expectRegistered(false, "after the clean-up");
       }
       SoDB::finish();
     }},
    {"CleanUpTwice",
     [] {
       SoDB::init();
       TarnOI::initClasses();
       use();
       cleanUp(table());
       cleanUp(table());
       TarnOI::cleanUpClasses();
       SoDB::finish();
     }},
    {"AnyLegalOrder",
     [] {
       SoDB::init();
       std::mt19937 random(7);
       for (int round = 0; round < 12; ++round) {
         initialise(legalOrder(random));
         expectRegistered(true, "after the registration");
         use();
         std::vector<TarnOI::ClassEntry> backwards = table();
         std::ranges::shuffle(backwards, random);
         cleanUp(backwards);
         expectRegistered(false, "after the clean-up");
       }
       SoDB::finish();
     }},
    {"EachClassAlone",
     [] {
       SoDB::init();
       for (const TarnOI::ClassEntry& entry : table()) {
         std::vector<TarnOI::ClassEntry> needed{entry};
         for (bool grown = true; grown;) {
           grown = false;
           for (const TarnOI::ClassEntry& other : table()) {
             if (std::strcmp(other.name, needed.front().parent) != 0) continue;
             needed.insert(needed.begin(), other);
             grown = true;
           }
         }
         initialise(needed);
         check(isRegistered(entry), std::string(entry.name) + " is registered alone");
         const SoType type = entry.getClassTypeId();
         if (type.canCreateInstance()) {
           auto root = makeNode<SoSeparator>();
           root->addChild(static_cast<SoNode*>(type.createInstance()));
           SoGetBoundingBoxAction box(SbViewportRegion(100, 100));
           box.apply(root.get());
         }
         cleanUp(needed);
       }
       std::erase_if(reports,
                     [](const auto& report) { return report.first == "tarnoi_searchDict"; });
       SoDB::finish();
     }},
    {"AgainAfterFinish",
     [] {
       for (int round = 0; round < 4; ++round) {
         SoDB::init();
         TarnOI::initClasses();
         expectRegistered(true, "in round " + std::to_string(round));
         use();
         if (round % 2 == 0) TarnOI::cleanUpClasses();
         SoDB::finish();
         expectRegistered(false, "after round " + std::to_string(round));
       }
     }},
    {"CleanUpAfterFinish",
     [] {
       SoDB::init();
       TarnOI::initClasses();
       use();
       SoDB::finish();
       TarnOI::cleanUpClasses();
       cleanUp(table());
       SoDB::init();
       TarnOI::initClasses();
       use();
       SoDB::finish();
     }},
    {"BeforeCoinIsInitialised",
     [] {
       const std::string noParent =
           "parentType != SoType::badType() && \"you forgot init() on parentclass!\"";
       for (const TarnOI::ClassEntry& entry : table()) {
         entry.initClass();
         Reports expected;
         if (std::strcmp(entry.name, "TarnOISearchAction") == 0) {
           expected.emplace_back("SoSearchAction::getClassTypeId() != SoType::badType()",
                                 entry.name);
         } else {
           expected.emplace_back(noParent, entry.name);
         }
         // A model-bound class asks for its elements all the same, in both actions.
         if (reports.size() > 1) {
           for (int action = 0; action < 2; ++action) {
             for (const char* element : {"SoDrawStyleElement", "SoLinePatternElement",
                                         "SoLineWidthElement", "SoPointSizeElement"}) {
               std::string condition("!");
               condition.append(element).append("::getClassTypeId().isBad()");
               expected.emplace_back(condition, entry.name);
             }
           }
         }
         const bool bound = std::strcmp(entry.name, "TarnOISeparator") == 0 ||
                            std::strcmp(entry.parent, "TarnOISeparator") == 0;
         if (bound) check(expected.size() == 9, std::string(entry.name) + " reports its elements");
         check(reports == expected, std::string(entry.name) + " reports the right texts");
         for (const auto& [condition, file] : reports == expected ? Reports{} : reports) {
           std::fprintf(stderr, "  %s: %s\n", file.c_str(), condition.c_str());
         }
         reports.clear();
         check(!isRegistered(entry), std::string(entry.name) + " stays unregistered");
       }
       SoDB::init();
       TarnOI::initClasses();
       use();
       TarnOI::cleanUpClasses();
       SoDB::finish();
     }},
};

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "--list") == 0) {
    for (const auto& scenario : scenarios) std::puts(scenario.first.c_str());
    return 0;
  }
  const auto found = argc == 2 ? scenarios.find(argv[1]) : scenarios.end();
  if (found == scenarios.end()) {
    std::fputs("usage: tarn_lifecycle SCENARIO, or --list\n", stderr);
    return 2;
  }
  tarn::setAssertHandler(
      [](const char* condition, const char* file, int) { reports.emplace_back(condition, file); });
  found->second();
  expectNoReports("at the end");
  return failures ? 1 : 0;
}
