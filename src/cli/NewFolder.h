// A folder that is made with all of its files, or not at all.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tovarek {

class NewFolder {
  public:
    // Makes it. Throws WrongUse where something of this name exists or no folder can have it; raises what
    // writing there would raise.
    explicit NewFolder(std::string path);
    // Removes what was written, unless all of it was.
    ~NewFolder();
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

    std::string PathOf(std::string_view name) const { return path_ + '/' + std::string(name); }
    // Writes a file into it. Raises what writing raises.
    void Put(std::string_view name, std::string_view bytes);
    // All is written. Answers the paths.
    std::vector<std::string> Finish();

  private:
    std::string path_;
    std::vector<std::string> written_;
    bool isFinished_ = false;
};

}  // namespace tovarek
