// Picture resources: the pictures every language shares (pictures/pictures.rc beside
// the language folders) joined to a language's library, pictures of its own winning,
// a shared script that holds more than pictures left out; and the shipped pictures.
#include "platform/resources/picture_resources.h"
#include "platform/resources/resource_library_loader.h"
#include "platform/resources/resource_module.h"
#include "resource_test_support.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>

using tabra::platform::pictureFileNamed;
using tabra::platform::pictureName;
using tabra::test::TemporaryDirectory;

namespace {

struct SharedPictures {
    const char *what;
    const char *languageScript; // en/tabraRes.rc
    const char *sharedScript;   // pictures/pictures.rc; null: none
    std::map<int32_t, std::string> expected; // picture id -> file below the tree
};

const SharedPictures kShared[] = {
    {"shared pictures join the library", "STRINGTABLE\nBEGIN\n 1, \"en\"\nEND\n",
     "10013 PICTURE \"import.png\"\n10022 PICTURE \"sub/export.png\"\n",
     {{10013, "pictures/import.png"}, {10022, "pictures/sub/export.png"}}},
    {"the language's own picture wins", "10013 PICTURE \"own.png\"\n", "10013 PICTURE \"import.png\"\n",
     {{10013, "en/own.png"}}},
    {"a shared script with a string is left out", "10014 PICTURE \"add.png\"\n",
     "10013 PICTURE \"import.png\"\nSTRINGTABLE\nBEGIN\n 1, \"x\"\nEND\n", {{10014, "en/add.png"}}},
    {"a faulty shared script is left out", "", "10013 PICTURE import.png\n", {}},
    {"no shared script", "", nullptr, {}},
};

class PictureResources : public ::testing::TestWithParam<SharedPictures> {};

TEST_P(PictureResources, SharedPicturesAreJoinedToEveryLanguage) {
    const SharedPictures &c = GetParam();
    TemporaryDirectory tree;
    tree.write("en/tabraRes.rc", c.languageScript);
    if (c.sharedScript) tree.write(tabra::platform::kSharedPicturesScript, c.sharedScript);
    auto load = tabra::platform::loadResourceLibraryFrom(tree.directory(), {"en", "en"}, "tabraRes.rc", {});
    ASSERT_NE(load.module, nullptr);
    const auto *tables = tabra::platform::resourceTablesOf(load.module);
    std::map<int32_t, std::string> found;
    for (const auto &[id, file] : tables->pictures) found[id] = file.substr(tree.directory().size());
    EXPECT_EQ(found, c.expected);
    for (const auto &[id, file] : c.expected)
        EXPECT_EQ(pictureFileNamed(load.module, pictureName(id)), tree.directory() + file);
    EXPECT_EQ(pictureFileNamed(load.module, u"10013"), "") << "a picture's name is \"#\" and its number";
    Ostrel_FreeResourceLibrary(load.module);
}

INSTANTIATE_TEST_SUITE_P(Cases, PictureResources, ::testing::ValuesIn(kShared), [](const auto &info) {
    std::string name;
    for (const char *c = info.param.what; *c; ++c) name.push_back(std::isalnum(static_cast<unsigned char>(*c)) ? *c : '_');
    return name;
});

// The six wizard pictures, in both shipped languages, are PNG files that exist.
TEST(PictureResources, TheShippedWizardPicturesAreThereInEveryLanguage) {
    for (const char *language : {"en", "de"}) {
        auto load = tabra::platform::loadResourceLibraryFrom(tabra::test::shippedResourceDirectory().string() + "/",
                                                             {language, language}, "tabraRes.rc", {});
        ASSERT_NE(load.module, nullptr) << language;
        for (int32_t id : {10013, 10014, 10019, 10020, 10021, 10022}) {
            std::ifstream file(pictureFileNamed(load.module, pictureName(id)), std::ios::binary);
            char signature[8] = {};
            file.read(signature, sizeof signature);
            EXPECT_EQ(std::string(signature + 1, 3), "PNG") << language << " picture " << id;
        }
        Ostrel_FreeResourceLibrary(load.module);
    }
}

} // namespace
