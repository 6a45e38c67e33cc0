// The choice of the resource language.
#include "platform/resources/language_choice.h"

#include "platform/resources/locale_names.h"

#include <cstdio>
#include <cstdlib>

namespace tabra::platform {
namespace {

std::optional<std::string> environmentValue(const char *name) {
    const char *value = std::getenv(name);
    if (value == nullptr) return std::nullopt;
    return std::string(value);
}

bool isSet(const std::optional<std::string> &value) { return value && !value->empty(); }

} // namespace

LanguageEnvironment LanguageEnvironment::fromProcess() {
    return {environmentValue("ZUL_LANGUAGE"), environmentValue("LC_ALL"), environmentValue("LC_MESSAGES"),
            environmentValue("LANG")};
}

LanguageNames chooseLanguageNames(const LanguageEnvironment &environment) {
    LanguageNames names;
    if (isSet(environment.zulLanguage)) {
        const std::string &value = *environment.zulLanguage;
        if (value.size() > kLanguageNameLimit) {
            std::fprintf(stderr, "tabra: ZUL_LANGUAGE is longer than %zu characters and is ignored\n",
                         kLanguageNameLimit);
            names.localeName = "en";
            return names;
        }
        names.localeName = value;
        names.shortName = languageOfLocaleName(value);
        if (names.shortName.empty()) names.localeName = "en";
        return names;
    }

    std::string posixLocale = "C";
    for (const auto *candidate : {&environment.lcAll, &environment.lcMessages, &environment.lang}) {
        if (isSet(*candidate)) {
            posixLocale = **candidate;
            break;
        }
    }
    std::string uiLocale = uiLocaleNameFromPosix(posixLocale);
    names.shortName = languageOfLocaleName(uiLocale);
    names.localeName = uiLocale.empty() || uiLocale.size() > kLanguageNameLimit ? "en" : uiLocale;
    return names;
}

} // namespace tabra::platform
