// The parts of a path and its separators.
#include <gtest/gtest.h>

#include "base/utf16.h"
#include "paths/path_grammar.h"

namespace ferry::paths {
namespace {

struct Case {
    std::wstring_view Input, Expected;
};

template <class Function, std::size_t count>
void Check(Function function, const Case (&cases)[count]) {
    for (const auto& [input, expected] : cases) {
        SCOPED_TRACE(base::ToUtf8(input));
        EXPECT_EQ(function(input), expected);
    }
}

TEST(LastComponent, IsTheTextAfterTheLastBackslash) {
    Check(LastComponent, {{L"C:\\dir\\name.txt", L"name.txt"},
                          {L"name.txt", L"name.txt"},
                          {L"C:\\dir\\", L""},
                          {L"a/b", L"a/b"},
                          {L"", L""}});
}

TEST(ShownName, IsTheLastComponentBeforeAnySeparatorsAndOfARootTheWholeText) {
    Check(ShownName, {{L"C:\\dir\\name.txt", L"name.txt"},
                      {L"C:\\dir\\", L"dir"},
                      {L"C:\\dir\\\\", L"dir"},
                      {L"C:\\dir/", L"dir"},
                      {L"\\\\server\\share\\", L"share"},
                      {L"name.txt", L"name.txt"},
                      {L"D:\\", L"D:\\"},
                      {L"D:/", L"D:/"},
                      {L"D:", L"D:"},
                      {L"ab\\", L"ab"},
                      {L"\\", L"\\"},
                      {L"\\\\", L"\\\\"},
                      {L"", L""}});
}

TEST(ParentWithSeparator, EndsWithTheLastBackslash) {
    Check(ParentWithSeparator, {{L"C:\\dir\\name.txt", L"C:\\dir\\"},
                                {L"name.txt", L"name.txt"},
                                {L"C:\\dir\\", L"C:\\dir\\"},
                                {L"\\", L"\\"},
                                {L"", L""}});
}

TEST(StripTrailingSeparator, LeavesDriveRootsAndTakesOneSeparatorElsewhere) {
    Check(StripTrailingSeparator, {{L"C:\\", L"C:\\"},
                                   {L"C:/", L"C:/"},
                                   {L"1:\\", L"1:\\"},
                                   {L"C:\\dir\\", L"C:\\dir"},
                                   {L"C:\\dir/", L"C:\\dir"},
                                   {L"C:\\dir\\\\", L"C:\\dir\\"},
                                   {L"C:\\dir", L"C:\\dir"},
                                   {L"ab\\", L"ab"},
                                   {L"\\", L""},
                                   {L"C:", L"C:"},
                                   {L"", L""}});
}

TEST(WithTrailingSeparator, AddsABackslashOnlyWhereNoneOfBothSeparatorsStands) {
    Check(WithTrailingSeparator, {{L"C:\\dir", L"C:\\dir\\"},
                                  {L"C:\\dir\\", L"C:\\dir\\"},
                                  {L"C:/dir/", L"C:/dir/"},
                                  {L"C:", L"C:\\"},
                                  {L"", L""}});
}

TEST(SplitPath, TakesAPathApart) {
    struct PartsCase {
        std::wstring_view Path, Drive, Folder, Name, Extension;
    };
    const PartsCase cases[] = {
        {L"C:\\a.b\\c.tar.gz", L"C:", L"\\a.b\\", L"c.tar", L".gz"},
        {L"archive", L"", L"", L"archive", L""},
        {L"", L"", L"", L"", L""},
        {L"C:\\", L"C:", L"\\", L"", L""},
        {L"C:file.txt", L"", L"", L"C:file", L".txt"},
        {L"\\\\srv\\share\\f.x", L"", L"\\\\srv\\share\\", L"f", L".x"},
        {L"ab\\c.d", L"ab", L"\\", L"c", L".d"},
        {L"a\\c", L"a\\", L"", L"c", L""},
        {L"1:\\c", L"", L"1:\\", L"c", L""},
        {L"C:\\.profile", L"C:", L"\\", L"", L".profile"},
        {L"C:\\name.", L"C:", L"\\", L"name", L"."},
        {L"C:\\a.b\\", L"C:", L"\\a.b\\", L"", L""},
        {L"C:/a.b/c", L"", L"", L"C:/a", L".b/c"},
    };
    for (const auto& [path, drive, folder, name, extension] : cases) {
        SCOPED_TRACE(base::ToUtf8(path));
        const PathParts parts = SplitPath(path);
        EXPECT_EQ(parts.Drive, drive);
        EXPECT_EQ(parts.Folder, folder);
        EXPECT_EQ(parts.Name, name);
        EXPECT_EQ(parts.Extension, extension);
    }
}

TEST(NameWithoutExtension, IsTheNameOrTheWholePathWhenThatIsEmpty) {
    Check(NameWithoutExtension, {{L"C:\\dir\\name.txt", L"name"},
                                 {L"C:\\dir.d\\", L"dir"},
                                 {L"C:\\dir\\c.tar.gz", L"c.tar"},
                                 {L"C:\\dir\\.profile", L"C:\\dir\\.profile"},
                                 {L".profile", L".profile"},
                                 {L"C:\\dir\\.git\\", L"C:\\dir\\.git\\"},
                                 {L"C:\\", L"C:\\"},
                                 {L"", L""}});
}

TEST(Extension, BelongsToTheLastComponentOfThePathAsItStands) {
    Check(Extension, {{L"C:\\dir\\name.txt", L".txt"},
                      {L"C:\\a.b\\name", L""},
                      {L"C:\\dir.d\\", L""},
                      {L".profile", L".profile"},
                      {L"name.", L"."},
                      {L"", L""}});
}

}  // namespace
}  // namespace ferry::paths
