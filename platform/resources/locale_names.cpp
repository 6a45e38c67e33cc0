// The built-in language table and locale name mapping.
#include "platform/resources/locale_names.h"

#include <algorithm>
#include <vector>

namespace tabra::platform {
namespace {

// Every ISO 639-1 code, each between blanks, in alphabetical order.
constexpr std::string_view kIso639Codes =
    " aa ab ae af ak am an ar as av ay az ba be bg bi bm bn bo br bs ca ce ch co cr cs cu cv"
    " cy da de dv dz ee el en eo es et eu fa ff fi fj fo fr fy ga gd gl gn gu gv ha he hi ho"
    " hr ht hu hy hz ia id ie ig ii ik io is it iu ja jv ka kg ki kj kk kl km kn ko kr ks ku"
    " kv kw ky la lb lg li ln lo lt lu lv mg mh mi mk ml mn mr ms mt my na nb nd ne ng nl nn"
    " no nr nv ny oc oj om or os pa pi pl ps pt qu rm rn ro ru rw sa sc sd se sg si sk sl sm"
    " sn so sq sr ss st su sv sw ta te tg th ti tk tl tn to tr ts tt tw ty ug uk ur uz ve vi"
    " vo wa wo xh yi yo za zh zu ";

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }
char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }
bool isAlphanumeric(char c) { return (c >= '0' && c <= '9') || (lower(c) >= 'a' && lower(c) <= 'z'); }

// Splits a locale name at "-" and "_" into its subtags; empty when a subtag is empty,
// longer than 8 characters or holds anything but letters and digits.
std::vector<std::string> subtagsOf(std::string_view name) {
    std::vector<std::string> subtags(1);
    for (char c : name) {
        if (c == '-' || c == '_') {
            subtags.emplace_back();
        } else if (isAlphanumeric(c) && subtags.back().size() < 8) {
            subtags.back().push_back(c);
        } else {
            return {};
        }
    }
    for (const auto &subtag : subtags)
        if (subtag.empty()) return {};
    return subtags;
}

} // namespace

bool isIso639Language(std::string_view code) {
    if (code.size() != 2 || code.find(' ') != std::string_view::npos) return false;
    std::string key = " " + std::string(code) + " ";
    return kIso639Codes.find(key) != std::string_view::npos;
}

std::string languageOfLocaleName(std::string_view localeName) {
    std::vector<std::string> subtags = subtagsOf(localeName);
    if (subtags.empty()) return {};
    std::string language = subtags.front();
    std::transform(language.begin(), language.end(), language.begin(), lower);
    return isIso639Language(language) ? language : std::string();
}

std::string uiLocaleNameFromPosix(std::string_view posixLocale) {
    std::string_view name = posixLocale.substr(0, posixLocale.find_first_of(".@"));
    if (name == "C" || name == "POSIX") return "en";
    std::vector<std::string> subtags = subtagsOf(name);
    if (subtags.empty() || languageOfLocaleName(name).empty()) return {};
    std::string result;
    for (size_t i = 0; i < subtags.size(); ++i) {
        std::string subtag = subtags[i];
        if (i == 0) std::transform(subtag.begin(), subtag.end(), subtag.begin(), lower);
        else if (subtag.size() == 2) std::transform(subtag.begin(), subtag.end(), subtag.begin(), upper);
        if (i > 0) result.push_back('-');
        result += subtag;
    }
    return result;
}

} // namespace tabra::platform
