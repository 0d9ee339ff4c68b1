// A picture of every page of the gallery, in both themes and three languages, chosen as a user does on its first page,
// and of what touches change.
#include "gallery_fixture.h"

static const struct {
    const char *name;
    u32 button;
} languages[] = {{"en", VIEW1_LANG_EN_ID}, {"de", VIEW1_LANG_DE_ID}, {"zh", VIEW1_LANG_ZH_ID}};

static void every_page(bool light) {
    gallery_open();
    if (light) {
        gallery_tap(GALLERY_INDEX, VIEW1_THEME_ID);
    }
    for (const auto &language : languages) {
        gallery_show(GALLERY_INDEX);
        gallery_tap(GALLERY_INDEX, language.button);
        for (u32 view = GALLERY_INDEX; view <= GALLERY_VIEWS; view++) {
            gallery_show(view);
            CHECK(gallery_is_golden(std::string(gallery_names[view]) + "_" + language.name +
                                    (light ? "_youth" : "_night")));
        }
    }
}

TEST_CASE("every page of the gallery looks right in the dark theme, in three languages") {
    every_page(false);
}

TEST_CASE("every page of the gallery looks right in the light theme, in three languages") {
    every_page(true);
}

TEST_CASE("changing the theme and back leaves every page as it was") {
    gallery_open();
    for (bool light : {true, false}) {
        gallery_show(GALLERY_INDEX);
        gallery_tap(GALLERY_INDEX, VIEW1_THEME_ID);
        for (u32 view : {1, 3, 5, 6, 7, 8, 9, 10, 12, 13, 16, 17}) { // the others show the time
            gallery_show(view);
            CHECK((light || gallery_is_golden(std::string(gallery_names[view]) + "_en_night")));
        }
    }
}
