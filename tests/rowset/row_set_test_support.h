// Helpers of the row-set tests: scratch files, the bytes a UTF-16LE text should give,
// a statement hook that records or refuses, and an independent reader of row-set
// files (iconv for the encoding, Python's csv module for fields and records).
#pragma once

#include "catalog/catalog_test_support.h"
#include "ostrel.h"
#include "tabra_rowset.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

namespace tabra::test {

// A fresh scratch folder for one test, removed afterwards.
class ScratchFolder {
public:
    ScratchFolder() {
        const auto *info = ::testing::UnitTest::GetInstance()->current_test_info();
        std::string name = std::string(info->test_suite_name()) + "." + info->name();
        for (char &c : name)
            if (c == '/') c = '_';
        path_ = scratchRoot() / "rowset" / name;
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    const std::filesystem::path &path() const { return path_; }
    std::u16string file(const std::string &name) const { return toUtf16((path_ / name).string()); }
    // Names in the folder (to see that nothing was left behind).
    std::vector<std::string> entries() const {
        std::vector<std::string> names;
        for (const auto &entry : std::filesystem::directory_iterator(path_)) names.push_back(entry.path().filename());
        return names;
    }

private:
    std::filesystem::path path_;
};

inline std::string fileBytes(const std::u16string &name) {
    std::ifstream in(toUtf8(name), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// The UTF-16LE bytes of a text, written out by hand.
inline std::string utf16le(std::u16string_view text) {
    std::string bytes;
    for (char16_t c : text) {
        bytes.push_back(static_cast<char>(c & 0xFF));
        bytes.push_back(static_cast<char>(c >> 8));
    }
    return bytes;
}

// Runs check in a child process (one that gave up root, if asked: root may write any
// file); whether it held.
inline bool inChild(const std::function<bool()> &check, bool unprivileged = false) {
    pid_t child = ::fork();
    if (child == 0) std::_Exit((!unprivileged || (::setgid(65534) == 0 && ::setuid(65534) == 0)) && check() ? 0 : 1);
    int status = 0;
    return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// Umlauts everywhere; the ANSI SQLite driver carries no character outside the BMP,
// the servers do (and Ø, whose low byte 0xD8 one driver miscounts).
inline std::u16string wideText(Backend backend) {
    return backend == Backend::SQLite ? u"Gr\u00fc\u00dfe \u20ac" : u"Gr\u00fc\u00dfe \U0001F600 \u00d8";
}

// Python that splits a row-set file written with quoted text (flag 1) and default
// separators: the csv module (quote "'", doubled inside).
inline constexpr const char *kRowSetSplitter = R"(import csv, io
rows = csv.reader(io.StringIO(text, newline=''), delimiter='\t', quotechar="'")
)";

// Reads a file the way another program would: iconv decodes UTF-16LE (and fails on
// anything that is not UTF-16), Python splits the text with splitter, a piece of code
// that makes `rows`, a list of lists of fields, from `text`. Returns the records as
// UTF-8 fields; a failure of either tool fails the test.
inline std::vector<std::vector<std::string>> readWithTools(const std::u16string &fileName,
                                                           const char *splitter = kRowSetSplitter) {
    const std::string reader = std::string("import sys\ntext = sys.stdin.buffer.read().decode('utf-8')\n") +
                                splitter + R"(for row in rows:
    sys.stdout.buffer.write('\x1f'.join(row).encode('utf-8') + b'\x1e')
)";
    auto folder = std::filesystem::path(toUtf8(fileName)).parent_path();
    std::ofstream(folder / "read_row_set.py") << reader;
    std::string command = "cd '" + folder.string() + "' && iconv -f UTF-16LE -t UTF-8 '" + toUtf8(fileName) +
                          "' > decoded.txt && python3 read_row_set.py < decoded.txt; echo \"|$?\"";
    std::string output;
    if (FILE *pipe = popen(command.c_str(), "r")) {
        char chunk[4096];
        for (std::size_t got; (got = fread(chunk, 1, sizeof chunk, pipe)) > 0;) output.append(chunk, got);
        pclose(pipe);
    }
    std::vector<std::vector<std::string>> records;
    auto status = output.rfind('|');
    EXPECT_EQ(status == std::string::npos ? "none" : output.substr(status), "|0\n") << output;
    if (status == std::string::npos) return records;
    output.resize(status);
    std::size_t start = 0;
    for (auto end = output.find('\x1e'); end != std::string::npos; end = output.find('\x1e', start)) {
        std::vector<std::string> fields;
        std::string record = output.substr(start, end - start);
        std::size_t from = 0;
        for (auto cut = record.find('\x1f'); ; cut = record.find('\x1f', from)) {
            fields.push_back(record.substr(from, cut == std::string::npos ? cut : cut - from));
            if (cut == std::string::npos) break;
            from = cut + 1;
        }
        records.push_back(fields);
        start = end + 1;
    }
    return records;
}

} // namespace tabra::test
