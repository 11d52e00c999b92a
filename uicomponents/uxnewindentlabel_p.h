#ifndef UXNEWINDENTLABEL_P_H
#define UXNEWINDENTLABEL_P_H

#include <QLabel>
#include <QPointer>
#include <QString>

class UxNewIndentLabel;

class UxNewIndentLabelPrivate
{
public:
    explicit UxNewIndentLabelPrivate(UxNewIndentLabel* q);

    UxNewIndentLabel* q_ptr;
    QString m_msg;
    QString m_text; // the indent and the simplified message, as painted
    // Guarded: a client may delete the label it got from linkLabel().
    QPointer<QLabel> m_linkLabel;
    int m_width = 0;
    int m_height = 0;
    int m_lineSpacing = 0;
    int m_lineCount = 0;
    int m_indent = 0;
    bool m_showLinkText = false;

    Q_DECLARE_PUBLIC(UxNewIndentLabel)
};

#endif // UXNEWINDENTLABEL_P_H
