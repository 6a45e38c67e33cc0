// Which language the resource library is loaded in. The environment variable
// ZUL_LANGUAGE names it directly; without it the user-interface language comes
// from the POSIX locale (LC_ALL, then LC_MESSAGES, then LANG; the first one set and
// not empty decides; none at all means "C", which is English).
#pragma once

#include <optional>
#include <string>

namespace tabra::platform {

// The environment values the choice reads; unset values are nothing.
struct LanguageEnvironment {
    std::optional<std::string> zulLanguage;
    std::optional<std::string> lcAll;
    std::optional<std::string> lcMessages;
    std::optional<std::string> lang;

    static LanguageEnvironment fromProcess();
};

// The two folder names tried before "en": the locale name and the short name.
struct LanguageNames {
    std::string localeName;
    std::string shortName;
};

// Names longer than this are refused (the names live in 20-character buffers).
constexpr size_t kLanguageNameLimit = 19;

// With ZUL_LANGUAGE set and not empty: the locale name is its value as it stands and
// the short name its ISO 639-1 language; when the system does not know the value
// (or it is longer than kLanguageNameLimit), the locale name becomes "en" and the
// short name stays empty, so the English folder is tried first.
// Otherwise: the POSIX locale gives the user-interface language; the short name is
// its ISO 639-1 code and the locale name its canonical form ("de-DE"); when the
// language is unknown both lookups fail: the locale name is "en", the short name
// empty.
LanguageNames chooseLanguageNames(const LanguageEnvironment &environment);

} // namespace tabra::platform
