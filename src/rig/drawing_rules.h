#pragma once

#include "rig/svg_values.h"

#include <QSet>
#include <QString>
#include <QStringView>
#include <QXmlStreamReader>

#include <map>
#include <vector>

namespace rig {

/// A rule that a character file breaks; the reader adds file and line.
struct Defect
{
    QString text;
    qint64 line = 0; ///< 0: the line being read
};

/// A defect that quotes the file: `text` has %1 for it. Long quotations are cut.
[[nodiscard]] Defect defectIn(QStringView quotation, const char* text);

/// Lets through only those drawing elements that are safe and cheap to paint. Throws Defect.
class DrawingRules
{
public:
    /// `depth` is 1 for the children of the root.
    void element(const QString& name, const QXmlStreamAttributes& attributes, int depth, qint64 line);

    /// To be called at the end: every colour server that was named must have been there.
    void checkReferences() const;

    [[nodiscard]] const QRectF& viewBox() const { return viewBox_; }

    /// Groups that a rig may use as parts: those no other group encloses.
    [[nodiscard]] const QSet<QString>& parts() const { return parts_; }

private:
    void attribute(const QString& element, const QXmlStreamAttribute& entry, qint64 line);
    [[nodiscard]] QPainterPath outline(const QString& name, const QXmlStreamAttributes& attributes);

    /// What the children of an element inherit.
    struct Paint
    {
        QTransform transform; ///< to the pixels of a picture of usual size
        bool stroked = false;
        double strokeWidth = 1;
    };

    void readViewBox(QStringView value);
    void enter(const QXmlStreamAttributes& attributes, int depth);
    void spend(const QPainterPath& outline);

    QSet<QString> ids_;
    QSet<QString> parts_;
    QSet<QString> gradients_;
    std::map<QString, qint64> references_; ///< with the line of the first
    std::vector<Paint> paints_{Paint()};   ///< of the elements around the one being read, and of it
    QRectF viewBox_;
    qsizetype pathCharacters_ = 0;
    double cost_ = 0;
};

} // namespace rig
