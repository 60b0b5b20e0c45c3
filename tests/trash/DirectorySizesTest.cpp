#include "trash/TrashFormat.h"

namespace broomtide {
namespace {

TEST(DirectorySizes, DropsWhatIsSaidOfFoldersThatHaveGone) {
  struct Row {
    std::string text;
    std::string kept;
  };
  for (const Row& row : std::vector<Row>{
           {"", ""},
           {"1 2 other\n", "1 2 other\n"},
           {"1 2 other", "1 2 other\n"},
           {"1 2 build\n3 4 other\n5 6 build\n", "3 4 other\n"},
           {"1 2 buil%64\n1 2 %62uild\n1 2 a%2fb\n", "1 2 a%2fb\n"},
           {"1 2 %C3%BC%20!\n1 2 %c3%bc !\n1 2 ü%20!\n", ""},
           {"-1 2 build\n1 -2 build\n", ""},
           {"1 2 Build\n1 2 build \n1 2 builds\n1 2 buil\n",
            "1 2 Build\n1 2 build \n1 2 builds\n1 2 buil\n"},
           {"1 2 b\xff\r\n\n  \n1 2 build%\n1 2 build%6\n1 2 build%6g",
            "1 2 b\xff\r\n\n  \n1 2 build%\n1 2 build%6\n1 2 build%6g\n"},
           {"x 2 build\n1 x build\n 1 2 build\n1  build\n1 2\n1 2build\n- 2 build\nbuild\n",
            "x 2 build\n1 x build\n 1 2 build\n1  build\n1 2\n1 2build\n- 2 build\nbuild\n"},
       }) {
    EXPECT_EQ(withDirectorySizes(row.text, {{.name = "build", .size = 4096, .changedAt = 17},
                                            {.name = "ü !", .size = 0, .changedAt = -1}}),
              row.kept + "4096 17 build\n0 -1 %C3%BC%20%21\n");
  }
}

}  // namespace
}  // namespace broomtide
