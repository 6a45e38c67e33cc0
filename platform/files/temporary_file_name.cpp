// Unique temporary files for the caller to use and remove.
#include "ostrel_text.h"
#include "ostrel_ui.h"
#include "platform/text/bounded_text.h"
#include "platform/text/utf_conversion.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace {

// The folder for temporary files: $TMPDIR when it names a folder, else /tmp.
std::string temporaryFolder() {
    const char *named = std::getenv("TMPDIR");
    struct stat folder {};
    if (named != nullptr && named[0] != '\0' && ::stat(named, &folder) == 0 && S_ISDIR(folder.st_mode))
        return named;
    return "/tmp";
}

} // namespace

extern "C" int32_t CreateTemporaryFileName(char16_t *buffer, int32_t capacity, const char16_t *prefix) {
    if (buffer == nullptr || capacity < 1) return 0;
    buffer[0] = u'\0';
    std::string pattern = temporaryFolder();
    if (pattern.back() != '/') pattern.push_back('/');
    pattern += tabra::platform::toUtf8(tabra::platform::viewOf(prefix));
    pattern += "XXXXXX";
    int descriptor = ::mkostemp(pattern.data(), O_CLOEXEC);
    if (descriptor < 0) return 0;
    ::close(descriptor);
    std::u16string name = tabra::platform::fromUtf8(pattern);
    if (name.size() >= static_cast<std::size_t>(capacity)) {
        ::unlink(pattern.c_str());
        return 0;
    }
    OstrelCopyString(buffer, name.c_str(), capacity);
    return 1;
}
