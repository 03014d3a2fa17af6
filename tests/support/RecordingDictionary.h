#pragma once

#include "host/classes/VDictionary.h"

#include <utility>
#include <vector>

/// A dictionary that records its changes.
class RecordingDictionary : public tarn::VDictionary {
public:
  struct Change {
    enum Kind { ePut, eRemove } kind;
    tarn::VObject* key;
    void* value;  ///< null for a removal
    friend bool operator==(const Change&, const Change&) = default;
  };

  void atKeyPut(tarn::VObject* key, void* value) override {
    changes.push_back({Change::ePut, key, value});
    VDictionary::atKeyPut(key, value);
  }
  void removeKey(tarn::VObject* key) override {
    changes.push_back({Change::eRemove, key, nullptr});
    VDictionary::removeKey(key);
  }

  /// What changed since the last call, in order.
  std::vector<Change> takeChanges() { return std::exchange(changes, {}); }

private:
  std::vector<Change> changes;
};
