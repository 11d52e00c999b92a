#ifndef MARKETSIMULATOR_H
#define MARKETSIMULATOR_H

#include <uicomponents/uxtabledefines.h>

#include <QObject>
#include <QTime>
#include <QVector>

#include <random>

// A deterministic simulated market: a few thousand instruments with codes,
// Chinese names and pinyin initials, quotes that move on every tick, and the
// block order the quote table asks for (as a real quote server would keep).
// The same seed always gives the same instruments and the same ticks.
class MarketSimulator : public QObject
{
    Q_OBJECT
public:
    struct Instrument
    {
        QString code;
        QString name;
        QString pinyin; // initials, upper case
        int market = 0; // 1 Shanghai, 0 Shenzhen
        double preClose = 0;
        double open = 0;
        double now = 0;
        double high = 0;
        double low = 0;
        double volume = 0; // lots
        double amount = 0; // yuan
        double red = 0;    // outer volume, lots
        double diff5 = 0;  // 5-minute change, percent
        double turnover = 0;
        QTime time;
        bool suspended = false;
    };

    explicit MarketSimulator(int count = 3000, quint32 seed = 20261121, QObject* parent = nullptr);

    int count() const { return m_instruments.size(); }
    const Instrument& instrument(int i) const { return m_instruments.at(i); }

    // The block in its current order, identity fields only: what the table
    // holds before any page of quotes arrives.
    QList<_TableData> identityRows() const;
    // Full quote rows for block rows [start, start + count), clamped.
    QList<_TableData> rows(int start, int count) const;
    // Reorders the block by a quote field (mode 1 ascending, 2 descending).
    void sortBy(const QString& feild, int mode);
    // Moves prices of CHANGES random instruments among block rows
    // [start, start + count) and returns their new rows.
    QList<_TableData> tick(int start, int count, int changes);

    static QString formatUnits(double value); // 万 / 亿 above ten thousand
    _TableData row(int instrumentIndex) const;

private:
    double sortValue(const Instrument& in, const QString& feild) const;

    QVector<Instrument> m_instruments;
    QVector<int> m_order; // block row -> instrument index
    std::mt19937 m_rng;
};

#endif // MARKETSIMULATOR_H
