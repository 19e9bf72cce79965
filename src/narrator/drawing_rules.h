#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringView>
#include <QXmlStreamReader>

#include <optional>
#include <vector>

namespace narrator {

/// A rule that a character file breaks; the reader adds file and line.
struct Defect
{
    QString text;
    qint64 line = 0; ///< 0: the line being read
};

/// At most 64 Latin letters, digits, hyphens, dots and underscores.
[[nodiscard]] bool isWord(QStringView text);

/// A finite plain number within +-`limit`, or none.
[[nodiscard]] std::optional<double> plainNumber(QStringView text, double limit = 10'000);

/// Numbers separated by blanks or commas; none if one of them is no plain number.
[[nodiscard]] std::optional<std::vector<double>> plainNumbers(QStringView text);

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
    void spend(int cost);

    QSet<QString> ids_;
    QSet<QString> parts_;
    QSet<QString> gradients_;
    QHash<QString, qint64> references_;
    qsizetype pathCharacters_ = 0;
    int cost_ = 0;
};

} // namespace narrator
