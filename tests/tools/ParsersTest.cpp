#include <array>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "make_samples/Parsers.h"
#include "make_samples/Text.h"
#include "make_samples/Webster.h"
#include "support/TempFolder.h"
#include "text/FindReplace.h"
#include "text/StringFields.h"

namespace velmarin {
namespace {

/// The markup of all paragraphs, '|' between them, in short: *bold* /italic/ ^small capitals^ !red^.
std::string told(const std::vector<Paragraph>& paragraphs) {
    std::vector<std::string> markup;
    for (const Paragraph& paragraph : paragraphs)
        markup.push_back(paragraph.markup);
    std::string out = Join(markup, "|");
    for (const auto& [tag, sign] : {std::pair("<b>", "*"),
                                    {"</b>", "*"},
                                    {"<i>", "/"},
                                    {"</i>", "/"},
                                    {"<span variant=\"small-caps\">", "^"},
                                    {"<span color=\"#ac241c\">", "!"},
                                    {"</span>", "^"}})
        out = ReplaceAllB(out, tag, sign);
    return out;
}

TEST(GcideLetters, SignsInBracketsBecomeLettersAndOtherBracketsStay) {
    const std::pair<const char*, const char*> rows[] = {
        {"caf['e] [=a] [_d]", "café ā ḏ"},
        {"p[a^]l[i^]mp [^a]", "pălĭmp â"},
        {"[AE]sop, [oe]dema", "Æsop, œdema"},
        {"[thorn]at [aum]", "þat ä"},
        {"to reject. [Obs.]", "to reject. [Obs.]"},
        {"[F. abandon]", "[F. abandon]"},
        {"a [b", "a [b"},
        {"[]", "[]"},
        {"[ab] ['1]", "[ab] ['1]"},
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
    EXPECT_EQ(article.headword, "Mouse");
    EXPECT_EQ(article.pronunciation, "mous");
    EXPECT_EQ(article.wordClass, "n.; pl. Mice.");
    EXPECT_EQ(article.etymology, "[OE. mous, mus.]");
    ASSERT_EQ(article.blocks.size(), 3U) << "what later editors added is left out";
    EXPECT_EQ(article.blocks[0].text, "1. (Zool.) A small rodent.");
    EXPECT_EQ(article.blocks[1].kind, GcideArticle::Block::Kind::Quotation);
    EXPECT_EQ(article.blocks[2].kind, GcideArticle::Block::Kind::Synonyms);
}

TEST(GcideArticle, AccentsDivideTheWord) {
    EXPECT_EQ(parseGcideArticle("palimpsest \\pal\"imp*sest\\, n.\n   A parchment.\n").divided, "pal′imp·sest");
    EXPECT_EQ(parseGcideArticle("Mutability \\Mu`ta*bil\"i*ty\\, n.\n   Change.\n").divided, "Mu″ta·bil′i·ty");
    EXPECT_EQ(parseGcideArticle("no heading at all\n").headword, "");
    EXPECT_EQ(parseGcideArticle("").headword, "");
}

TEST(RichText, MarkupBecomesStyles) {
    const auto rich = [](const char* text) { return told({{Setting::Hanging, false, false, richText(text)}}); };
    EXPECT_EQ(rich("See {Ban}, v."), "See ^Ban^, v.");
    EXPECT_EQ(rich("\"A _bad_ end,\" 'tis said"), "“A /bad/ end,” ’tis said");
    EXPECT_EQ(rich("Hope was overthrown. --I. Taylor."), "Hope was overthrown. —\u00A0/I. Taylor./");
    EXPECT_EQ(rich("to yield; -- often bad"), "to yield; — often bad");
}

TEST(Webster, ShortenedArticlesTakeTheFirstSenseAndWhatIsShort) {
    const std::string heading = "abate \\a*bate\"\\, v.\n";
    const std::string mark = "\n   [1913 Webster]\n\n";
    const std::string longText(140, 'x');
    const std::string full = heading + "   1. " + longText + mark + "   2. To lessen." + mark + "   Note: Rare." +
                             mark + "          Abate thy speed.   --Dryden." + mark +
                             "          A second one.  --Shak." + mark + "   3. " + longText + mark +
                             "   Syn: To subside." + mark;
    const auto articles = websterArticles({heading + "   A tiny one." + mark, full}, 10000, "nothing");
    ASSERT_EQ(articles.size(), 2U);
    EXPECT_EQ(told(articles[0].paragraphs),
              "*a·bate′*, /v./ *1.*\u00A0" + longText +
                  "|*2.*\u00A0To lessen.|Abate thy speed. —\u00A0/Dryden./|*Syn.* — To subside.")
        << "the longest article first";
    EXPECT_EQ(articles[0].supplement.size(), 7U) << "in full: the longest of its letter";
    EXPECT_TRUE(articles[1].supplement.empty());
    EXPECT_EQ(websterArticles({heading + "   A tiny one." + mark, full}, 300, "").size(), 1U) << "the limit of bytes";
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

TEST(DevilArticle, ProseVerseAndSignatureAreToldApart) {
    const Article article = parseDevilArticle("ADMONITION, n.  Gentle reproof, as with a cannon-\nshot.\n\n"
                                              "    Consigned by way of admonition,\n        To perdition.\n"
                                              "                                                   Judibras\n");
    EXPECT_EQ(article.key, "ADMONITION");
    ASSERT_EQ(article.paragraphs.size(), 4U);
    EXPECT_EQ(told({article.paragraphs[0]}), "!*ADMONITION*^, /n./ Gentle reproof, as with a cannon-shot.");
    EXPECT_EQ(article.paragraphs[1].setting, Setting::Verse);
    EXPECT_TRUE(article.paragraphs[1].gapBefore);
    EXPECT_FALSE(article.paragraphs[2].gapBefore);
    EXPECT_EQ(article.paragraphs[3].setting, Setting::Right);
    EXPECT_EQ(told({parseDevilArticle("VERSE, n.\n\n    By a line.\n").paragraphs.at(1)}), "By a line.");
    EXPECT_EQ(parseDevilArticle("APRIL FOOL, n.  The March fool.\n").key, "APRIL FOOL");
    EXPECT_EQ(parseDevilArticle("X in our alphabet\n").key, "X");
    EXPECT_EQ(parseDevilArticle("preface of no article\n").key, "");
}

TEST(Element, OnlyWhatHasANumberIsOne) {
    const Article helium =
        parseElement("helium\nSymbol: He\nAtomic number: 2\nAtomic weight: 4.0026\nA gas of\n{group} 18.\n");
    EXPECT_EQ(helium.key, "002");
    EXPECT_EQ(helium.note, "Helium");
    EXPECT_EQ(told(helium.paragraphs),
              "!*2.*^* Helium*, !*He*^. /Atomic\u00A0weight/\u00A04.0026.|A gas of ^group^ 18.");
    EXPECT_EQ(parseElement("neutron\nWeight: 1.67\nA hadron.\n").key, "");
}

TEST(FreedictArticle, SensesFollowTheHeadword) {
    const std::pair<const char*, const char*> rows[] = {
        {"bestia /bˈɛstɪa/\nanimal, beast\n", "*bestia* animal, beast."},
        {"arx /ˈarks/ (arcis /ˈarkɪs/ <gen>) <n, sg, f>\nBurg\n", "*arx* (arcis /gen./) /n. f./ Burg."},
        {"abzug\n1. afname\n2. hak\n", "*abzug* *1.\u00A0*afname *2.\u00A0*hak."},
        {"hisa <n>\n1.\npart\n", "*hisa* /n./ *1.\u00A0*part."},
        {"Rom <n, neut>\nΡώμη 2.\ndie Stadt\n", "*Rom* /n. n./ Ρώμη — die Stadt."},
        {"hond\nHund <masc>\n", "*hond* Hund /m./"},
        {"lonely\n", ""},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(told(parseFreedictArticle(text).paragraphs), expected);
}

TEST(JapaneseArticle, KeyIsTheReadingAndCharactersFollow) {
    const Article article = parseJapaneseArticle(
        " [ichi1]  [news1]  火星 /x/,  [news1] かせい /kasei/\n(noun (common) (futsuumeishi))\nMars\n");
    EXPECT_EQ(article.key, "かせい");
    EXPECT_EQ(told(article.paragraphs), "*かせい*【火星】/ n./ Mars.");
    EXPECT_EQ(parseJapaneseArticle("私淑 /x/, ししゅく /y/\n(pronoun)\nestimer\n").key, "") << "no common word";
    EXPECT_EQ(parseJapaneseArticle(" [ichi1] 漢 /x/\n(pronoun)\nx\n").key, "") << "no reading";
}

} // namespace
} // namespace velmarin
