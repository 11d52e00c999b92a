#ifndef BENCHDATA_H
#define BENCHDATA_H

// Deterministic data shared by every benchmark case: the same seed gives the
// same rows, records and updates on every run, so figures compare from run
// to run.

#include "quickmacroitem.h"
#include "uxtabledefines.h"

#include <QColor>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>
#include <vector>

namespace bench {

const int kMarketRows = 32760;
const int kSmallRows = 1000;
const int kUpdatesPerBurst = 10000;
const int kDictSize = 30000;

// The twenty columns of a typical quote page; "Amount" mixes 万, 亿, % and
// plain numbers.
QList<_TableHHeaderData> quoteColumns();
int columnOf(const QString& feild);
const QString& sortFeild(); // "Amount"

// N instrument rows (each code unique), in a fixed pseudo-random order.
QList<_TableData> quoteRows(int n);

// A burst of kUpdatesPerBurst updates of random rows of ROWS: a fifth change
// "Now" (and the fields that move with it); the others repeat the row as it
// is. VARIANT 0 and 1 give different prices, so alternating bursts keep
// changing the table.
QList<_TableData> updateBurst(const QList<_TableData>& rows, int variant);

// The colour a cell of ROW shows in the quote table, as the model computes it
// (invalid: the view's text colour).
QColor foregroundOf(const _TableHHeaderData& h, const _TableData& row);
// The cell text the quote table shows.
QString displayOf(const _TableHHeaderData& h, const _TableData& row, int rowNumber);

// 30,000 quick-macro records (kind, code, name, pinyin initials, url) and
// pointers to them, kept for the whole run.
const QVector<quickMacroItem*>& dictionary();
// The code typed key by key in the search case; present in the dictionary.
const QString& typedCode(); // "600519"
const QString& pinyinQuery(); // "pf"

// Bytes in use on the heap (mallinfo2's uordblks).
qint64 heapInUse();

// The light skin's quote-table sheet, as the table shows it.
QString quoteTableSheet();

} // namespace bench

#endif // BENCHDATA_H
