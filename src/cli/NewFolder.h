// A folder that is made with all of its files, or not at all.
#pragma once

#include <string>
#include <string_view>

namespace tovarek {

class NewFolder {
  public:
    // Makes it. Throws WrongUse where something of this name exists or no folder can have it; raises what
    // writing there would raise.
    explicit NewFolder(std::string path);
    // Removes it and the files in it, unless all were written.
    ~NewFolder();
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    std::string PathOf(std::string_view name) const { return path_ + '/' + std::string(name); }
    // All is written.
    void Finish() { isFinished_ = true; }

  private:
    std::string path_;
    bool isFinished_ = false;
};

}  // namespace tovarek
