#include "model/clsEvent.h"

#include <gtest/gtest.h>

namespace kaz {
namespace {

TEST(clsEvent, ANameIsListedByItsTailInAnyCase) {
    clsEvent event;
    EXPECT_FALSE(event.NameInShared("Ann"));
    EXPECT_FALSE(event.NameInShared(""));
    event.ShareNames = "Jörg\r\nAnn\r\n";
    EXPECT_TRUE(event.NameInShared("ANN"));
    EXPECT_TRUE(event.NameInShared("nn"));
    EXPECT_FALSE(event.NameInShared("Ann2"));
    EXPECT_FALSE(event.NameInShared("An"));
    EXPECT_TRUE(event.NameInShared("JÖRG"));
    EXPECT_FALSE(event.NameInShared("JÖRG", CaseFolding::Ascii()));
}

}  // namespace
}  // namespace kaz
