#include "model/clsEvent.h"

#include <gtest/gtest.h>

namespace kaz {
namespace {

TEST(clsEvent, ANameIsListedByItsTailInAnyCase) {
    clsEvent event;
    EXPECT_FALSE(event.NameInShared("Ann"));
    EXPECT_FALSE(event.NameInShared(""));
    event.ShareNames = "J\xF6rg\r\nAnn\r\n";
    EXPECT_TRUE(event.NameInShared("ANN"));
    EXPECT_TRUE(event.NameInShared("nn"));
    EXPECT_FALSE(event.NameInShared("Ann2"));
    EXPECT_FALSE(event.NameInShared("An"));
    EXPECT_TRUE(event.NameInShared("J\xD6RG"));
    EXPECT_FALSE(event.NameInShared("J\xD6RG", CaseFolding::Ascii()));
}

}  // namespace
}  // namespace kaz
