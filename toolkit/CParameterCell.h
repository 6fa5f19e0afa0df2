#pragma once

#include "BasketToolkitExport.h"
#include "CBaseWidget.h"

class QLabel;
class QLineEdit;

namespace WK {

class CDoubleValidator;
class CIntValidator;

// A labelled number (or text) input with its unit: "篮子份数 [ 1 ] 份".
//
// Events, with the cell's id: 107 on each edit of the user (value: the number as an int, text:
// the text without separators); 103 when an edit ends (Return, leaving the field, or a step with
// the Up and Down keys) and the value differs from the last one committed. A number outside the
// validator's range is brought back to the nearer bound when the edit ends, with a tip saying
// the range unless tips are switched off.
class BASKET_TOOLKIT_EXPORT CParameterCell : public CBaseWidget
{
    Q_OBJECT

public:
    // Flag bits of setFlag.
    enum ECellFlag {
        CF_NONE = 0,
        CF_HIDE_LABEL = 0x1,
        CF_HIDE_UNIT = 0x2,
        CF_EMPHASIS = 0x4,  // the value in the value font and colour keys (see setFontKeys)
        CF_SEGMENTED = 0x8, // thousands separators in the value
    };

    CParameterCell(int id, const QString &label, const QString &unit, QWidget *parent);
    ~CParameterCell() override;

    int id() const { return m_id; }

    void setInt(qint64 value);
    void setDouble(double value);
    // Sets the number the way the validator takes it: whole for an integer cell.
    void setValue(double value);
    void setString(const QString &text);
    int toInt() const;
    qint64 toLongLong() const;
    double toDouble() const;
    // The text without thousands separators.
    QString toString() const;

    // Decimals shown and typed in a decimal cell.
    void setPrecision(int precision);
    int precision() const { return m_precision; }
    // An integer cell from bottom to top; Up and Down step by step. The unit becomes the text
    // given, unless it is empty.
    void setIntValidator(const QString &unit, qint64 bottom, qint64 top, qint64 step = 1);
    // A decimal cell; the precision follows the step's decimals (0.01 gives 2).
    void setDoubleValidator(const QString &unit, double bottom, double top, double step = 0.01);
    bool isDoubleCell() const { return m_double; }
    double bottom() const { return m_bottom; }
    double top() const { return m_top; }

    void setUnit(const QString &unit);
    QString unit() const;
    void setLabel(const QString &label);
    QString label() const;
    // Both texts at once; an empty text keeps the one shown.
    void changeLabel(const QString &label, const QString &unit);

    // Whether an out-of-range number shows the tip of the range.
    void setShowTip(bool show);
    void setFlag(int flags);
    int flag() const { return m_flags; }
    void setSegmented(bool segmented);

    // labelKey: the font of label and unit; valueKey: the font of the value when CF_EMPHASIS.
    void setFontKeys(const QString &labelKey, const QString &valueKey);
    // The colour of the value when CF_EMPHASIS.
    void setColorKey(const QString &key);

    QLineEdit *getEditor() const { return m_edit; }
    void setParameterCellFocus();
    // The text of the tip of the range, as "请输入0到100之间的数值".
    QString formatInvalidMessage() const;

    void themeChanged() override;
    void scaleChanged() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void commit();
    void step(int direction);
    QString formatted(double value) const;
    void applyLook();

    int m_id = 0;
    QLabel *m_label = nullptr;
    QLineEdit *m_edit = nullptr;
    QLabel *m_unit = nullptr;
    CIntValidator *m_intValidator = nullptr;
    CDoubleValidator *m_doubleValidator = nullptr;
    bool m_double = false;
    double m_bottom = 0;
    double m_top = 2147483647.0;
    double m_step = 1;
    int m_precision = 2;
    int m_flags = CF_NONE;
    bool m_showTip = true;
    QString m_labelFontKey = QStringLiteral("fnt_parameter_cell_text");
    QString m_valueFontKey = QStringLiteral("fnt_parameter_cell_text_weight");
    QString m_colorKey = QStringLiteral("clr_text_default");
    QString m_committed;
};

} // namespace WK
