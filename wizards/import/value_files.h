// Value files: a field whose values name files imports each file's whole content
// instead of the name. A name without a folder is looked for in the source file's
// folder; the text of the registry value "ImportExpandFileAppendix" (key "Lumo" below
// the library's root, 100 characters, default empty) is appended to every name, so that
// a file "photo" may be stored as "photo.txt". The file is read as import files are
// (import_file.h), its trailing line ends and control characters removed.
#pragma once

#include <optional>
#include <string>

namespace tabra::wizards::importing {

class ValueFiles {
public:
    // Reads the appendix once, for the whole import.
    explicit ValueFiles(std::u16string folder);
    // The content of the file a value names; nullopt when it cannot be opened, which
    // shows message 1615 with the name unless silent.
    std::optional<std::u16string> read(const std::u16string &value, bool silent) const;
    const std::u16string &appendix() const { return appendix_; }

private:
    std::u16string folder_;
    std::u16string appendix_;
};

} // namespace tabra::wizards::importing
