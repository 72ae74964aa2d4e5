#include "mfc/CString.h"

#include "tests/win/mfc/DialogTest.h"

#include "mfc/CInvalidArgException.h"

#include <sstream>

namespace
{
TEST(CString, isAValueFromManyKindsOfText)
{
    EXPECT_TRUE(CString().IsEmpty());
    EXPECT_EQ(CString(static_cast<LPCWSTR>(nullptr)), L"");
    EXPECT_EQ(CString(L"abcdef", 3), L"abc");
    EXPECT_EQ(CString(L'x', 3), L"xxx");
    EXPECT_EQ(CString(L'x', -1), L"");
    EXPECT_EQ(CString(OdString(OD_T("plotter"))), L"plotter");
    EXPECT_EQ(CString(L"plotter").toOdString(), OdString(OD_T("plotter")));
    CString text = L"one";
    const CString copy = text;
    text = nullptr;
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(copy, L"one");
}

TEST(CString, partsAreCutToTheText)
{
    const CString text = L"plotter";
    EXPECT_EQ(text.Left(4), L"plot");
    EXPECT_EQ(text.Left(-1), L"");
    EXPECT_EQ(text.Left(99), L"plotter");
    EXPECT_EQ(text.Right(3), L"ter");
    EXPECT_EQ(text.Right(99), L"plotter");
    EXPECT_EQ(text.Right(-1), L"");
    EXPECT_EQ(text.Mid(4), L"ter");
    EXPECT_EQ(text.Mid(1, 3), L"lot");
    EXPECT_EQ(text.Mid(99, 1), L"");
    EXPECT_EQ(text.Mid(-5, 2), L"pl");
    EXPECT_EQ(text.Mid(2, -1), L"");
}

TEST(CString, singleUnitsAreCheckedAgainstTheText)
{
    CString text = L"ab";
    EXPECT_EQ(text[1], L'b');
    EXPECT_EQ(text.GetAt(2), L'\0') << "the terminator may be asked for";
    EXPECT_THROW(text.GetAt(3), CInvalidArgException*);
    EXPECT_THROW(text.GetAt(-1), CInvalidArgException*);
    text.SetAt(0, L'x');
    EXPECT_EQ(text, L"xb");
    EXPECT_THROW(text.SetAt(2, L'x'), CInvalidArgException*) << "the terminator is not the caller's";
}

TEST(CString, finds)
{
    const CString text = L"a.b.c";
    EXPECT_EQ(text.Find(L'.'), 1);
    EXPECT_EQ(text.Find(L'.', 2), 3);
    EXPECT_EQ(text.Find(L'x'), -1);
    EXPECT_EQ(text.Find(L'.', 99), -1);
    EXPECT_EQ(text.Find(L'.', -1), -1);
    EXPECT_EQ(text.Find(L"b."), 2);
    EXPECT_EQ(text.Find(L"bc"), -1);
    EXPECT_EQ(text.ReverseFind(L'.'), 3);
    EXPECT_EQ(text.ReverseFind(L'x'), -1);
}

TEST(CString, comparesExactlyAndWithoutCaseOfLatinLetters)
{
    const CString text = L".PC3";
    EXPECT_EQ(text.CompareNoCase(L".pc3"), 0);
    EXPECT_NE(text.Compare(L".pc3"), 0);
    EXPECT_LT(CString(L"a").CompareNoCase(L"B"), 0);
    EXPECT_GT(CString(L"b").CompareNoCase(L"A"), 0);
    EXPECT_NE(CString(L"Ä").CompareNoCase(L"ä"), 0);
    EXPECT_EQ(text.CompareNoCase(nullptr), 1);
    EXPECT_TRUE(CString(L"a") < CString(L"b"));
}

TEST(CString, trimsWhiteSpaceOnBothSides)
{
    CString text = L" \t\x3000 name with blank \r\n";
    EXPECT_EQ(text.Trim(), L"name with blank");
    text = L"  \t ";
    EXPECT_EQ(text.Trim(), L"");
    text = L" x ";
    EXPECT_EQ(text.TrimLeft(), L"x ");
    text = L" x ";
    EXPECT_EQ(text.TrimRight(), L" x");
}

TEST(CString, joinsAndReplaces)
{
    CString text = L"a";
    text += L"b";
    text += L'c';
    text += CString(L"d");
    EXPECT_EQ(text, L"abcd");
    EXPECT_EQ(L"<" + text + L">" + L'!', L"<abcd>!");
    text = L"a/b/c";
    EXPECT_EQ(text.Replace(L'/', L'\\'), 2);
    EXPECT_EQ(text, L"a\\b\\c");
}

TEST(CString, formatTakesWideTextForS)
{
    CString text;
    text.Format(L"%s <%s> %d %c", L"Größe", CString(L"世界"), 42, L'ß');
    EXPECT_EQ(text, L"Größe <世界> 42 ß");
    text.Format(L"%S", "narrow");
    EXPECT_EQ(text, L"narrow");
    text.Format(L"%%0.%df", 2);
    EXPECT_EQ(text, L"%0.2f") << "a format made by a format";
    text.Format(text.GetString(), 25.4);
    EXPECT_EQ(text, L"25.40");
    text.Format(L"");
    EXPECT_EQ(text, L"");
    text = L"a";
    text.AppendFormat(L"%d", 1);
    EXPECT_EQ(text, L"a1");
}

TEST(CString, formatTakesItsOwnTextAndAnyLength)
{
    CString text(L'x', 100000);
    text.Format(L"%s%s", text, text);
    EXPECT_EQ(text.GetLength(), 200000);
    EXPECT_EQ(text, CString(L'x', 200000));
}

TEST(CString, formatWithoutAFormatChangesNothing)
{
    CString text = L"kept";
    EXPECT_THROW(text.Format(static_cast<LPCWSTR>(nullptr)), CInvalidArgException*);
    EXPECT_EQ(text, L"kept");
}

using CStringResourceTest = DialogTest;

TEST_F(CStringResourceTest, loadsStringsOfTheCurrentLibrary)
{
    CString text;
    EXPECT_TRUE(text.LoadString(IDS_GREETING));
    EXPECT_EQ(text, L"Grüße, 世界");
    EXPECT_FALSE(text.LoadString(IDS_MISSING));
    EXPECT_EQ(text, L"") << "a missing string leaves nothing behind";
    EXPECT_FALSE(text.LoadString(::GetModuleHandleW(nullptr), IDS_GREETING));
}

TEST_F(CStringResourceTest, formatsWithAString)
{
    CString text;
    text.Format(IDS_FORMAT, L"File", 3);
    EXPECT_EQ(text, L"File has 3 pages");
    EXPECT_THROW(text.Format(IDS_MISSING, 1), CInvalidArgException*);
    EXPECT_EQ(text, L"File has 3 pages");
}

TEST(CString, bufferIsTheTextUntilReleased)
{
    CString text = L"ab";
    LPWSTR buffer = text.GetBuffer(10);
    EXPECT_EQ(std::wstring(buffer), L"ab") << "the text is kept";
    wcscpy(buffer, L"longer");
    text.ReleaseBuffer();
    EXPECT_EQ(text, L"longer");
    text.GetBuffer(20);
    text.ReleaseBuffer(4);
    EXPECT_EQ(text, L"long");
    text.ReleaseBuffer(99);
    EXPECT_EQ(text.GetLength(), 4) << "not beyond the buffer";
}

TEST(CString, printsAsUtf8)
{
    std::ostringstream out;
    out << CString(L"ß");
    EXPECT_EQ(out.str(), "\"\xC3\x9F\"");
}
} // namespace
