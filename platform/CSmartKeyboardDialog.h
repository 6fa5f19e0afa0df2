#pragma once

#include "BasketPlatformExport.h"
#include "CInstrumentDetail.h"
#include "CStockInfo.h"
#include "CUiResourceChangeHandler.h"

#include <boost/function.hpp>

#include <QString>
#include <QWidget>

#include <vector>

class QEvent;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QTableWidget;

namespace TC {

// What kind of instrument the keyboard offers, and what kind the chosen one is.
enum ESmartKeyType { SKT_STOCK = 0, SKT_FUTURE = 1, SKT_ALL = 2 };

// The client's smart keyboard: a letter or digit typed in a panel opens a small search box near
// the panel with that character in it, and under it the instruments that match (code, name,
// market), narrowing as the user types. Up and Down (and Page Up / Page Down) move the current
// row, Enter or a double click chooses it, Esc or leaving the box closes it. Choosing hands the
// instrument to the select function.
//
// An instrument matches when its code starts with the text or its name contains it, regardless
// of case; at most MAX_MATCHES of them are listed, by code. Trade type 1 lists the stock markets
// only (SH, SZ and their long names); any other type lists every instrument.
//
// One keyboard per process, shared by every panel: each panel sets its select function, title
// and trade type before it hands the keyboard a key. The keyboard is a tool window, never modal:
// the panel below keeps running while it is open.
class BASKET_PLATFORM_EXPORT CSmartKeyboardDialog : public QWidget, public WK::CUiResourceChangeHandler
{
    Q_OBJECT

public:
    using SelectStockFunc = boost::function<void(ttservice::CStockInfo, ESmartKeyType)>;

    static constexpr int MAX_MATCHES = 50;

    // The process's keyboard, made on first use; needs a QApplication (null without one).
    // It has no parent and is deleted when the application is about to quit.
    static CSmartKeyboardDialog *instance();

    ~CSmartKeyboardDialog() override;

    // Called with the chosen instrument; it stays until it is replaced (or reset()).
    void setSelectStockFunc(SelectStockFunc func);
    // The header of the box and its window title: "选择股票", "选择合约" ...
    void setTitle(const QString &title);
    QString title() const;
    // 1: the stock markets only; any other value: every instrument. Takes effect at once.
    void setTradeType(int type);
    int tradeType() const { return m_tradeType; }
    // A key the user pressed in parent: starts a new search with the key's text and shows the
    // box below parent (above it when there is no room below), within parent's screen. A key
    // without printable text (a bare modifier, an arrow, Enter, a space) is left alone and not
    // accepted, so that the panel goes on with it. parent may be null: the box then opens in the
    // middle of the primary screen.
    void setChar(QKeyEvent *event, QWidget *parent);

    void scaleChanged() override;
    void themeChanged() override;

    // --- test and demo surface ---
    QString searchText() const;
    // Replaces the text of the search box and searches again, as if the user had typed it.
    void setSearchText(const QString &text);
    int matchCount() const { return static_cast<int>(m_matches.size()); }
    // The instrument of a listed row; an empty record for a row out of range.
    ttservice::CStockInfo matchAt(int row) const;
    // The row Enter would choose; -1 when nothing is listed.
    int currentRow() const;
    // As Enter on that row: hides the box, then calls the select function with the instrument
    // and SKT_FUTURE for a futures exchange, else SKT_STOCK. A row out of range does nothing.
    void chooseRow(int row);
    // No select function, an empty search, trade type 2, hidden. Tests call it so that a
    // function from an earlier test, and whatever it captured, is never called.
    void reset();
    QLineEdit *searchEdit() const { return m_edit; }
    QTableWidget *matchTable() const { return m_table; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    CSmartKeyboardDialog();

    // Searches for the present text and lists what is found, the first row current.
    void refresh();
    // Handles the box's own keys; true when the key was one of them.
    bool handleKey(QKeyEvent *event);
    void moveCurrent(int step);
    void placeNear(QWidget *anchor);
    void applyLook();

    QLabel *m_titleLabel = nullptr;
    QLineEdit *m_edit = nullptr;
    QTableWidget *m_table = nullptr;
    SelectStockFunc m_selectFunc;
    int m_tradeType = 2;
    std::vector<ttservice::CInstrumentDetail> m_matches;
};

} // namespace TC
