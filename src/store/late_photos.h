#pragma once

#include <optional>
#include <string>

#include "store/forwarding_store.h"

namespace store {

/// A database that doesn't wait for photos: whoever reads one gets a mark in its place, which a screen that
/// shows it exchanges for the photo when it has been read elsewhere.
class LatePhotos : public ForwardingStore {
 public:
  using ForwardingStore::ForwardingStore;

 protected:
  zorCrmParvel::RecordsetRef OpenForReading(const std::string& statement) override;
};

/// The statement that reads the photo of which a file holds the mark; nothing for any other file.
std::optional<std::string> LatePhotoIn(const std::string& file);

/// Runs it, and puts the photo in the file's place. False when there is none: the file stays.
bool BringPhoto(zorCrmParvel::Store& store, const std::string& statement, const std::string& file);

}  // namespace store
