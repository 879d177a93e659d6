// The program for translators, from its arguments to what it prints and leaves behind.
#include "texts/texts_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

#include "texts/text_tree.h"

namespace ferry::texts {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

namespace fs = std::filesystem;

/// A small project with one dialog and two languages.
class TextsProgram : public testing::Test {
public:
    TextsProgram(const TextsProgram&) = delete;
    TextsProgram& operator=(const TextsProgram&) = delete;

protected:
    TextsProgram()
        : folder_(
              fs::temp_directory_path() /
              (std::string("ferry-texts-") + testing::UnitTest::GetInstance()->current_test_info()->name())) {
        fs::remove_all(folder_);
        Put("root/res/ids.h", "#define IDD_A 200\n#define IDC_A 10\n");
        Put("root/res/a_dialog.rc",
            "IDD_A DIALOGEX 0, 0, 100, 50\nCAPTION \"題名\"\nBEGIN\n LTEXT \"名前(&N)\", IDC_A, 0, 0, 50, "
            "8\nEND\n");
        Put("root/src/a.cpp", "constexpr std::uint16_t kMessageA = 62304;\n");
        Put("root/res/lang/Msg.ja-JP.txt", "62304\t一\n");
        Put("root/res/lang/Msg.en-US.txt", "62304\tOne\n");
        Put("root/res/lang/en-US/200.txt", "Title\n10\tStatic\t&Name\n");
    }
    ~TextsProgram() override {
        std::error_code error;
        fs::remove_all(folder_, error);
    }

    void Put(const std::string& name, const std::string& bytes) const {
        fs::create_directories((folder_ / name).parent_path());
        std::ofstream(folder_ / name, std::ios::binary) << bytes;
    }

    std::string Get(const std::string& name) const {
        std::ifstream file(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// Runs the program on the project and keeps what it prints.
    ExitCode Run(Arguments arguments) {
        arguments.insert(arguments.begin(), folder_ / "root");
        std::ostringstream out;
        std::ostringstream err;
        const ExitCode code = RunTextsProgram(arguments, out, err);
        out_ = out.str();
        err_ = err.str();
        return code;
    }

    fs::path folder_;
    std::string out_;
    std::string err_;
};

TEST_F(TextsProgram, SaysNothingWhenAllIsFine) {
    EXPECT_EQ(Run({"check"}), ExitCode::Fine);
    EXPECT_EQ(out_ + err_, "");
}

TEST_F(TextsProgram, NamesFileLineAndTextOfWhatItFinds) {
    Put("root/res/lang/en-US/200.txt", "Title\n10\tStatic\tThe &name of the new file\n");
    EXPECT_EQ(Run({"check"}), ExitCode::FaultsFound);
    EXPECT_THAT(out_, StartsWith("res/lang/en-US/200.txt:2: too long by about "));
    EXPECT_THAT(out_, HasSubstr("\"The &name of the new file\"\n"));
}

TEST_F(TextsProgram, ChecksTheTemplatesThemselves) {
    Put("root/res/a_dialog.rc",
        "IDD_A DIALOGEX 0, 0, 100, 50\nCAPTION \"題名\"\nBEGIN\n LTEXT \"名前(&N)\", IDC_A, 0, 0, 9, "
        "8\nNONSENSE 1\nEND\n");
    EXPECT_EQ(Run({"check"}), ExitCode::FaultsFound);
    EXPECT_THAT(out_, HasSubstr("res/a_dialog.rc:4: too long by about "));
    EXPECT_THAT(out_, HasSubstr("res/a_dialog.rc:5: this statement is not understood\n"));
}

TEST_F(TextsProgram, FindsFilesThatAreMissingOrSurplus) {
    fs::rename(folder_ / "root/res/lang/en-US/200.txt", folder_ / "root/res/lang/en-US/201.txt");
    fs::remove(folder_ / "root/res/lang/Msg.en-US.txt");
    EXPECT_EQ(Run({"check"}), ExitCode::FaultsFound);
    EXPECT_EQ(out_,
              "res/lang/en-US/200.txt: this file is missing\n"
              "res/lang/en-US/201.txt: no dialog has this number\n"
              "res/lang/Msg.en-US.txt: this file is missing or cannot be read\n");
}

TEST_F(TextsProgram, FindsMessagesThatTheSourcesUseOrOneLanguageLacks) {
    Put("root/src/deep/b.h", "\nconstexpr std::uint16_t kMessageB = 62305;\n");
    Put("root/res/lang/Msg.en-US.txt", "1\tOne\n");
    EXPECT_EQ(Run({"check"}), ExitCode::FaultsFound);
    EXPECT_EQ(out_,
              "src/deep/b.h:2: message 62305 is not in res/lang/Msg.ja-JP.txt\n"
              "res/lang/Msg.en-US.txt:1: message 1 is surplus\n"
              "res/lang/Msg.en-US.txt: message 62304 is missing: \"一\"\n");
}

TEST_F(TextsProgram, FindsAFileInAnotherEncoding) {
    Put("root/res/lang/en-US/200.txt", "Title\n10\tStatic\t&Nam\xE9\n");
    EXPECT_EQ(Run({"check"}), ExitCode::FaultsFound);
    EXPECT_EQ(out_, "res/lang/en-US/200.txt: this is neither UTF-16LE with its mark nor UTF-8\n");
}

TEST_F(TextsProgram, StartsALanguageThatWantsNothingButTranslation) {
    const fs::path folder = folder_ / "french";
    EXPECT_EQ(Run({"new", "fr-FR", folder}), ExitCode::Fine);
    const std::optional<std::wstring> text = ReadTextFile(folder / "200.txt");
    EXPECT_EQ(text, L"\xFEFF題名\r\n10\tStatic\t名前(&N)\r\n");
    EXPECT_EQ(Get("french/200.txt").substr(0, 4), "\xFF\xFE\x4C\x98");
    EXPECT_EQ(ReadTextFile(folder / "Msg.fr-FR.txt"),
              L"\xFEFF"
              L"62304\t一\r\n");
    EXPECT_EQ(Run({"check", folder}), ExitCode::Fine);
    EXPECT_EQ(out_, "");
}

TEST_F(TextsProgram, StartsALanguageWithTheTextsOfAnother) {
    EXPECT_EQ(Run({"new", "fr-FR", folder_ / "french", "en-US"}), ExitCode::Fine);
    EXPECT_EQ(ReadTextFile(folder_ / "french/200.txt"), L"\xFEFFTitle\r\n10\tStatic\t&Name\r\n");
    EXPECT_EQ(ReadTextFile(folder_ / "french/Msg.fr-FR.txt"),
              L"\xFEFF"
              L"62304\tOne\r\n");
}

TEST_F(TextsProgram, ChecksOneLanguageWhereverItLies) {
    Put("french/200.txt", "Titre\n10\tStatic\tNom\n");
    Put("french/Msg.fr-FR.txt", "62304\tUn\n");
    EXPECT_EQ(Run({"check", folder_ / "french"}), ExitCode::FaultsFound);
    EXPECT_THAT(out_, HasSubstr("200.txt:2: there is no letter behind a \"&\": \"Nom\"\n"));
    EXPECT_EQ(std::ranges::count(out_, '\n'), 1);
}

TEST_F(TextsProgram, OverwritesNothingThatATranslatorHasWritten) {
    Put("french/200.txt", "Titre\n");
    EXPECT_EQ(Run({"new", "fr-FR", folder_ / "french"}), ExitCode::WrongUsage);
    EXPECT_THAT(err_, HasSubstr("200.txt is there already"));
    EXPECT_EQ(Get("french/200.txt"), "Titre\n");
    EXPECT_FALSE(fs::exists(folder_ / "french/Msg.fr-FR.txt"));
}

TEST_F(TextsProgram, RefusesACommandLineThatItDoesNotKnow) {
    for (const Arguments& wrong :
         {Arguments{}, Arguments{"translate"}, Arguments{"check", folder_ / "nowhere"}, Arguments{"new"},
          Arguments{"new", "fr-FR"}, Arguments{"new", "../fr", folder_ / "x"},
          Arguments{"new", "fr-FR", folder_ / "x", "xx-XX"}}) {
        EXPECT_EQ(Run(wrong), ExitCode::WrongUsage);
    }
    EXPECT_FALSE(fs::exists(folder_ / "x"));
    Put("file", "no folder");
    EXPECT_EQ(Run({"new", "fr-FR", folder_ / "file"}), ExitCode::WrongUsage);
    EXPECT_EQ(Run({"help"}), ExitCode::Fine);
    EXPECT_THAT(out_, StartsWith("Usage: ./dev texts"));
}

TEST_F(TextsProgram, SaysThatThereAreNoDialogs) {
    fs::remove_all(folder_ / "root");
    EXPECT_EQ(Run({"check"}), ExitCode::WrongUsage);
    EXPECT_THAT(err_, HasSubstr("there are no dialogs below "));
}

TEST(TextsOfTheProject, AreWholeInEveryLanguage) {
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(RunTextsProgram({FERRY_ROOT, "check"}, out, err), ExitCode::Fine) << err.str();
    EXPECT_EQ(out.str(), "");
}

TEST(TextsOfTheProject, BelongToDialogsThatAreAllUnderstood) {
    TextTree tree(FERRY_ROOT);
    ASSERT_TRUE(tree.Load());
    EXPECT_GE(tree.Dialogs().size(), 5U);
    EXPECT_GE(tree.Used().size(), 13U);
    std::size_t entries = 0;
    for (const DialogFile& file : tree.Dialogs()) {
        for (const ControlSource& control : file.Dialog.Controls) {
            entries += control.Texts.Items.size();
        }
    }
    EXPECT_GE(entries, 24U);
}

}  // namespace
}  // namespace ferry::texts
