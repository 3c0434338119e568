// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

// tavrin-bench-arrange JOB FILE ROUNDS: sorting and selecting the records of a datafile as a window does it.
// "times" prints names and medians; "rows" prints the first field and the balance of each record, between
// tabs, for those that we compare ourselves with.

#include "Measure.h"
#include "document/DatafileArrangement.h"
#include "document/DatafileDocument.h"
#include "text/Comparison.h"

#include <QFile>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <numeric>

namespace {

using namespace tavrin;
using namespace Qt::StringLiterals;

constexpr qsizetype nameField = 0;
constexpr qsizetype balanceField = 5;

class Arranging
{
public:
    explicit Arranging(DatafileDocument &document)
        : g_document(document)
        , g_texts(document.datafileRecords(), document.datafileSettings())
        , g_records(document.datafileCatalog().catalogRecords().records)
    {
        QString buffer;
        const RecordTextReader text = g_texts.textReader();
        const RecordTextReader name = g_texts.fieldReader(field(nameField));
        const RecordTextReader balance = g_texts.fieldReader(field(balanceField));
        const text::NumberReader reader(QLocale(u"en_US"_s));
        for (const quint32 record : g_records) {
            g_bytes += text(record, buffer).toString().toStdString();
            g_keys.push_back(text::comparisonKey(name(record, buffer), Qt::CaseInsensitive));
            g_numbers.push_back(reader.readLeniently(balance(record, buffer).toString()));
        }
    }

    bool time(int rounds)
    {
        // Every round begins in the order of the file.
        const std::vector<CatalogEntry> before = g_document.datafileCatalog().entries();
        const auto restore = [&] {
            g_document.datafileCatalog().restoreOrder(before);
            return true;
        };
        return bench::timeInTurn(
            rounds,
            {{"ready-texts", [this] { return stableSort(g_keys); }},
             {"sort-texts", [this] { return sort(SortKind::Text, nameField); }, restore},
             {"ready-numbers", [this] { return stableSort(g_numbers); }},
             {"sort-numbers", [this] { return sort(SortKind::Numbers, balanceField); }, restore},
             {"sort-created", [this] { return sort(SortKind::CreatedDate, nameField); }, restore},
             {"look", [this] { return sumOfWords() != 0; }},
             {"select", [this] { return !contains(u"zyxwvutsrq"_s); }},
             {"select-é", [this] { return !contains(u"éq"_s); }}});
    }

    void printRows() const
    {
        QString buffer;
        for (const quint32 record : g_records) {
            const QByteArray name = g_texts.fieldReader(field(nameField))(record, buffer).toString().toUtf8();
            const QByteArray balance =
                g_texts.fieldReader(field(balanceField))(record, buffer).toString().toUtf8();
            std::printf("%s\t%s\n", name.constData(), balance.constData());
        }
    }

private:
    QString field(qsizetype index) const
    {
        return g_document.datafileSettings().fields()[index].identifier();
    }

    bool sort(SortKind kind, qsizetype fieldIndex)
    {
        SortCriteriaData criteria;
        criteria.setCompareSelector(static_cast<qint64>(kind));
        criteria.setPrimaryFieldIdentifier(field(fieldIndex));
        Progress progress;
        return DatafileArrangement(g_document).sort(criteria, progress).has_value();
    }

    bool contains(const QString &text)
    {
        SubsetSortCriteriaData criteria;
        criteria.setSelectAllRecords(false);
        criteria.setWherePopup1(static_cast<qint64>(SelectionOperator::Contains));
        criteria.setBasedOnPopup1(static_cast<qint64>(SelectionBasis::FreeformText));
        criteria.setWhereField1(text);
        Progress progress;
        return DatafileArrangement(g_document).select(criteria, false, progress).value_or(false);
    }

    template <typename Term>
    static bool stableSort(const std::vector<Term> &terms)
    {
        std::vector<quint32> places(terms.size());
        std::iota(places.begin(), places.end(), 0U);
        std::ranges::stable_sort(
            places, {}, [&terms](quint32 place) -> const Term & { return terms[place]; });
        return !places.empty();
    }

    /// Touches every byte of the texts, as little as one can.
    quint64 sumOfWords() const
    {
        quint64 sum = 0;
        for (size_t at = 0; at + 8 <= g_bytes.size(); at += 8) {
            quint64 word = 0;
            std::memcpy(&word, g_bytes.data() + at, sizeof word);
            sum += word;
        }
        return sum;
    }

    DatafileDocument &g_document;
    StoredTexts g_texts;
    std::vector<quint32> g_records;
    std::string g_bytes;
    std::vector<std::string> g_keys;
    std::vector<double> g_numbers;
};

} // namespace

int main(int argc, char **argv)
{
    const std::string job = argc == 4 ? argv[1] : "";
    if (job != "times" && job != "rows") {
        std::fprintf(stderr, "usage: tavrin-bench-arrange times|rows FILE ROUNDS\n");
        return 2;
    }
    QLocale::setDefault(QLocale(u"en_US"_s));
    const DocumentServices services{Environment::system(), nullptr};
    auto document =
        DatafileDocument::open(services, QFile::decodeName(argv[2]), SelectionOnOpening::AllSelected);
    if (!document) {
        std::fprintf(stderr, "%s: %s\n", argv[2], qPrintable(document.error().message));
        return 1;
    }
    Arranging arranging(**document);
    if (job == "times")
        return arranging.time(std::atoi(argv[3])) ? 0 : 1;
    arranging.printRows();
    return 0;
}
