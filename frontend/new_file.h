#pragma once

#include <filesystem>
#include <string>

namespace frontend {

/// A database file that is made beside the place where it is to stand, so that nobody sees it half made. What is not
/// put in place goes with the object.
class NewFile {
  public:
    explicit NewFile(std::filesystem::path place);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Where it is made.
    const std::string& Name() const { return name_; }

    /// Gives the file, which nobody may have open, its place. Raises 58 where there is one meanwhile, 75 where the
    /// folder does not take it.
    void PutInPlace();

  private:
    std::filesystem::path place_;
    std::string name_;
};

}  // namespace frontend
