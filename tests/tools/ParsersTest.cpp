#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "make_samples/Parsers.h"
#include "make_samples/Webster.h"
#include "press/Text.h"
#include "support/TempFolder.h"
#include "text/FindReplace.h"
#include "text/StringFields.h"

namespace velmarin {
namespace {

/// All paragraphs, '|' between them, in short: *bold* /italic/ ^small capitals^ !red^, "> " before a verse, ">> "
/// before a signature, "# " after a gap.
std::string told(const std::vector<Paragraph>& paragraphs) {
    std::vector<std::string> texts;
    for (const Paragraph& each : paragraphs)
        texts.push_back((each.gapBefore ? "# " : "") + std::string(each.setting == Setting::Verse ? "> " : "") +
                        (each.setting == Setting::Right ? ">> " : "") + each.markup);
    std::string out = Join(texts, "|");
    out = ReplaceAllB(ReplaceAllB(out, "<span variant=\"small-caps\">", "^"), "</span>", "^");
    out = ReplaceAllB(ReplaceAllB(out, "<b>", "*"), "</b>", "*");
    return ReplaceAllB(ReplaceAllB(ReplaceAllB(out, "<i>", "/"), "</i>", "/"), "<span color=\"#ac241c\">", "!");
}

TEST(GcideLetters, SignsInBracketsBecomeLettersAndOtherBracketsStay) {
    const std::pair<const char*, const char*> rows[] = {
        {"caf['e] [=a] [_d]", "café ā ḏ"},
        {"p[a^]l[i^]mp [^a]", "pălĭmp â"},
        {"[AE]sop, [oe]dema", "Æsop, œdema"},
        {"[thorn]at [aum]", "þat ä"},
        {"[Obs.] [F. abandon] a [b", "[Obs.] [F. abandon] a [b"},
        {"[] [ab] ['1]", "[] [ab] ['1]"},
    };
    for (const auto& [coded, letters] : rows)
        EXPECT_EQ(gcideLetters(coded), letters);
}

TEST(GcideArticle, HeadingIsToldFromTheTextByWhereItsLinesBreak) {
    const GcideArticle article =
        parseGcideArticle("Mouse \\Mouse\\ (mous), n.; pl. {Mice} (m[imac]s). [OE. mous,\n   mus.]\n"
                          "   1. (Zool.) A small rodent.\n      [1913 Webster]\n\n"
                          "            Not even a mouse.                        --Moore.\n      [1913 Webster]\n\n"
                          "   2. An electronic device.\n      [PJC]\n\n   Syn: Rodent.\n      [1913 Webster]\n");
    EXPECT_EQ(article.headword + ";" + article.pronunciation + ";" + article.wordClass + ";" + article.etymology,
              "Mouse;mous;n.; pl. Mice.;[OE. mous, mus.]");
    ASSERT_EQ(article.blocks.size(), 3U) << "what later editors added is left out";
    EXPECT_EQ(article.blocks[0].text, "1. (Zool.) A small rodent.");
    EXPECT_EQ(article.blocks[1].kind, GcideArticle::Block::Kind::Quotation);
    EXPECT_EQ(article.blocks[2].kind, GcideArticle::Block::Kind::Synonyms);
    EXPECT_EQ(parseGcideArticle("Mutability \\Mu`ta*bil\"i*ty\\, n.\n   Change.\n").divided, "Mu″ta·bil′i·ty");
    for (const char* text : {"no heading at all\n", ""})
        EXPECT_EQ(parseGcideArticle(text).headword, "");
}

TEST(RichText, MarkupBecomesStyles) {
    const auto rich = [](const char* text) { return told({{Setting::Hanging, false, false, richText(text)}}); };
    EXPECT_EQ(rich("See {Ban}, v."), "See ^Ban^, v.");
    EXPECT_EQ(rich("\"A _bad_ end,\" 'tis said"), "“A /bad/ end,” ’tis said");
    EXPECT_EQ(rich("Hope was overthrown. --I. Taylor."), "Hope was overthrown. —\u00A0/I. Taylor./");
    EXPECT_EQ(rich("to yield; -- often bad"), "to yield; — often bad");
}

TEST(Webster, ShortenedArticlesTakeTheFirstSenseAndWhatIsShort) {
    const std::string heading = "abate \\a*bate\"\\, v.\n", mark = "\n   [1913 Webster]\n\n", longText(140, 'x');
    std::string full = heading;
    for (const std::string& block :
         {"   1. " + longText, std::string("   2. To lessen."), std::string("   Note: Rare."),
          std::string("          Abate thy speed.   --Dryden."), std::string("          A second one.  --Shak."),
          "   3. " + longText, std::string("   Syn: To subside.")})
        full += block + mark;
    const std::vector<std::string> sources = {heading + "   A tiny one." + mark, full};
    const auto articles = websterArticles(sources, 10000, "nothing");
    ASSERT_EQ(articles.size(), 2U);
    EXPECT_EQ(told(articles[0].paragraphs),
              "*a·bate′*, /v./ *1.*\u00A0" + longText +
                  "|*2.*\u00A0To lessen.|Abate thy speed. —\u00A0/Dryden./|*Syn.* — To subside.")
        << "the longest article first";
    EXPECT_EQ(articles[0].supplement.size(), 7U) << "in full: the longest of its letter";
    EXPECT_TRUE(articles[1].supplement.empty());
    EXPECT_EQ(websterArticles(sources, 300, "").size(), 1U) << "the limit of bytes";
}

TEST(SourceArticles, AreInUtf8WithoutDamagedOnes) {
    const test::TempFolder folder;
    folder.write("a.dict", "caf\xC3\xA9"
                           "M\xFCnze"
                           "\xC3\x83\xC2\xA4"
                           "\xEF\xBF\xBD"
                           "NIGGER");
    folder.write("a.index", "a\tA\tF\nb\tF\tF\nc\tK\tE\nd\tO\tD\ne\tR\tG\n");
    EXPECT_EQ(sourceArticles(folder.path(), "a"), (std::vector<std::string>{"café", "Münze"}));
    EXPECT_THROW(sourceArticles(folder.path(), "b"), std::runtime_error);
}

std::string shown(const Article& article) {
    return article.key + (article.note.empty() ? "" : " (" + article.note + ")") + ": " + told(article.paragraphs);
}

TEST(Articles, AreReadFromTheirSources) {
    const std::pair<Article, const char*> rows[] = {
        {parseDevilArticle("ADMONITION, n.  Reproof, as with a cannon-\nshot.\n\n    Consigned by way of it,\n"
                           "        To perdition.\n                                                   Judibras\n"),
         "ADMONITION (n.): !*ADMONITION*^, /n./ Reproof, as with a cannon-shot.|# > Consigned by way of it,|"
         "> \u00A0\u00A0\u00A0\u00A0To perdition.|>> ^Judibras^"},
        {parseDevilArticle("APRIL FOOL, n.  The March fool.\n"),
         "APRIL FOOL (n.): !*APRIL FOOL*^, /n./ The March fool."},
        {parseDevilArticle("X in our alphabet\n"), "X: !*X*^ in our alphabet"},
        {parseDevilArticle("preface of no article\n"), ": "},
        {parseElement("helium\nSymbol: He\nAtomic number: 2\nAtomic weight: 4.0026\nA gas of\n{group} 18.\n"),
         "002 (Helium): !*2.*^* Helium*, !*He*^. /Atomic\u00A0weight/\u00A04.0026.|A gas of ^group^ 18."},
        {parseElement("neutron\nWeight: 1.67\nA hadron.\n"), ": "},
        {parseFreedictArticle("bestia /bˈɛstɪa/\nanimal, beast\n"), "bestia: *bestia* animal, beast."},
        {parseFreedictArticle("arx /ˈarks/ (arcis /ˈarkɪs/ <gen>) <n, sg, f>\nBurg\n"),
         "arx: *arx* (arcis /gen./) /n. f./ Burg."},
        {parseFreedictArticle("abzug\n1. afname\n2. hak\n"), "abzug: *abzug* *1.\u00A0*afname *2.\u00A0*hak."},
        {parseFreedictArticle("hisa <n>\n1.\npart\n"), "hisa: *hisa* /n./ *1.\u00A0*part."},
        {parseFreedictArticle("Rom <n, neut>\nΡώμη 2.\ndie Stadt\n"), "Rom: *Rom* /n. n./ Ρώμη — die Stadt."},
        {parseFreedictArticle("hond\nHund <masc>\n"), "hond: *hond* Hund /m./"},
        {parseFreedictArticle("lonely\n"), ": "},
        {parseJapaneseArticle(" [ichi1]  [news1]  火星 /x/,  [news1] かせい /kasei/\n(noun (common))\nMars\n"),
         "かせい (火星): *かせい*【火星】/ n./ Mars."},
        {parseJapaneseArticle("私淑 /x/, ししゅく /y/\n(pronoun)\nestimer\n"), ": "},
        {parseJapaneseArticle(" [ichi1] 漢 /x/\n(pronoun)\nx\n"), ": "},
    };
    for (const auto& [article, expected] : rows)
        EXPECT_EQ(shown(article), expected);
}

} // namespace
} // namespace velmarin
