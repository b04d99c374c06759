// The four list sections and their rows.

#include <QTest>

#include "editor_antlr3.h"
#include "loaded_text.h"
#include "samples.h"
#include "scribonspecs_state.h"

class tst_Lists : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanupTestCase() { free_resources(); }

    void scanList_data() { addSampleRows(QStringLiteral("lists_scan_list.txt")); }
    void scanList() { checkSampleRow(); }
    void metaData_data() { addSampleRows(QStringLiteral("lists_meta_data.txt")); }
    void metaData() { checkSampleRow(); }
    void scanListAuxUser_data() { addSampleRows(QStringLiteral("lists_scan_list_aux_user.txt")); }
    void scanListAuxUser() { checkSampleRow(); }
    void ecmList_data() { addSampleRows(QStringLiteral("lists_ecm_list.txt")); }
    void ecmList() { checkSampleRow(); }

    void longListKeepsEveryRow_data();
    void longListKeepsEveryRow();
    void metaDataListFlag();
};

void tst_Lists::longListKeepsEveryRow_data()
{
    QTest::addColumn<QByteArray>("keyword");
    QTest::addColumn<QByteArray>("row");
    QTest::newRow("scan list") << QByteArray("@SCAN_LIST") << QByteArray("eng_speed .AV spd_avg");
    QTest::newRow("meta data") << QByteArray("@META_DATA") << QByteArray("pam_key \"text\"");
    QTest::newRow("aux user") << QByteArray("@SCAN_LIST_AUX_USER") << QByteArray("my_var \"a b\"");
    QTest::newRow("ECM list") << QByteArray("@ECM_LIST") << QByteArray("1 /some/path");
}

void tst_Lists::longListKeepsEveryRow()
{
    QFETCH(QByteArray, keyword);
    QFETCH(QByteArray, row);
    constexpr ANTLR3_UINT32 ROWS = 20000;
    QByteArray text = "@SCRIBON s\n" + keyword + '\n';
    for (ANTLR3_UINT32 i = 0; i < ROWS; ++i)
        text += row + '\n';
    QCOMPARE(loadText(text), 0);

    // The root's third child, after the first statement and its line end.
    const pANTLR3_BASE_TREE section = treeChild(2);
    const auto keywordNode = childAt(section, 1);
    ANTLR3_UINT32 rows = 0;
    for (ANTLR3_UINT32 i = 0; i < keywordNode->getChildCount(keywordNode); ++i) {
        const auto child = childAt(keywordNode, i);
        rows += child->getChildCount(child) > 0 ? 1 : 0;
    }
    QCOMPARE(rows, ROWS);
}

void tst_Lists::metaDataListFlag()
{
    metaDataList = 0;
    loadText("@SCRIBON s\n");
    QCOMPARE(metaDataList, 0);
    loadText("@SCRIBON s\n@META_DATA\n");
    QCOMPARE(metaDataList, 1);
}

#include "area_test.h"
AREA_TEST(QTEST_APPLESS_MAIN, tst_Lists)
#include "tst_lists.moc"
