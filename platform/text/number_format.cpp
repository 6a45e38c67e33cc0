// Numbers put into texts of the resource library.
#include "platform/text/number_format.h"

namespace tabra::platform {

std::u16string withNumbers(std::u16string_view format, std::initializer_list<int64_t> numbers) {
    const int64_t *next = numbers.begin();
    std::u16string text;
    for (std::size_t i = 0; i < format.size(); ++i) {
        bool marked = format[i] == u'%' && i + 1 < format.size();
        if (marked && format[i + 1] == u'%') {
            text.push_back(u'%');
            ++i;
        } else if (marked && format[i + 1] == u'd' && next != numbers.end()) {
            for (char digit : std::to_string(*next++)) text.push_back(static_cast<char16_t>(digit));
            ++i;
        } else {
            text.push_back(format[i]);
        }
    }
    return text;
}

} // namespace tabra::platform
