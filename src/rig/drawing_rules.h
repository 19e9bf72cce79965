#pragma once

#include "rig/svg_values.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringView>
#include <QXmlStreamReader>

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

    /// Groups that a rig may use as parts: those no other group encloses.
    [[nodiscard]] const QSet<QString>& parts() const { return parts_; }

private:
    void attribute(const QString& element, const QString& name, QStringView value, qint64 line);
    void paint(QStringView value, qint64 line);
    void path(QStringView data);
    /// What the children of an element inherit.
    struct Paint
    {
        QTransform transform; ///< to the pixels of a picture of usual size
        bool stroked = false;
        double strokeWidth = 1;
    };

    void enter(const QXmlStreamAttributes& attributes, int depth);
    void spend(const QPainterPath& outline);

    QSet<QString> ids_;
    QSet<QString> parts_;
    QSet<QString> gradients_;
    QHash<QString, qint64> references_;
    std::vector<Paint> paints_; ///< of the element being read and those around it
    QPainterPath outline_;      ///< of the path being read
    qsizetype pathCharacters_ = 0;
    double cost_ = 0;
};

} // namespace rig
