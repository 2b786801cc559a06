// The string tables of the component: the messages of the errors and the fixed fragments of generated texts.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace tovarek {

class CResources {
  public:
    // A new instance holds the English texts.
    CResources();

    // The language of the tables; 0 is English, the only language with texts.
    std::int32_t lang() const { return lang_; }
    // Stores the language. 0 refills both tables; any other value leaves the texts as they are.
    void lang(std::int32_t value);

    // Fragment `id`, 0 to 8; any other id is runtime error 9.
    const std::string& resource(std::int32_t id) const;
    // Message `id`, 0 to 134, that is the one of error id + 1; any other id is runtime error 9.
    const std::string& errorString(std::int32_t id) const;

  private:
    static constexpr std::size_t kFragments = 9;
    static constexpr std::size_t kMessages = 135;

    std::int32_t lang_ = 0;
    std::array<std::string, kFragments> fragments_;
    std::array<std::string, kMessages> messages_;
};

// The roles of the fragments.
enum HeaderFragment : std::int32_t {
    fragmentFile = 0,            // begins the first header line of the XIF
    fragmentGeneratedBy = 1,     // its generated-by part
    fragmentXifVersion = 2,      // its end
    fragmentRunOn = 3,           // before date and time
    fragmentCopyright = 4,       // the copyright line
    fragmentCpScope = 5,         // opens a configuration-property reference
    fragmentCpIndexInScope = 6,  // between scope and index
    fragmentNvScope = 7,         // opens a network-variable reference
    fragmentNvIndexInScope = 8,  // between scope and index
};

}  // namespace tovarek
