#pragma once

#include "rig/rig.h"

#include <QSet>
#include <QString>
#include <QStringList>
#include <QXmlStreamReader>

#include <vector>

namespace rig {

/// Builds a rig from the elements in the metadata of a character file, read one after another.
/// Every call throws Defect if the element breaks a rule.
class RigReader
{
public:
    void start(const QString& name, const QXmlStreamAttributes& attributes, qint64 line);
    void end(const QString& name);

    /// What has been read, once the whole file has been seen. `parts` are the groups of the drawing.
    [[nodiscard]] Rig finish(const QSet<QString>& parts, const QRectF& drawing) const;

private:
    class Fields;
    enum class Inside { Nothing, Character, Gesture, Leaf, Done };

    void character(const Fields& fields);
    void bone(const Fields& fields);
    void draw(const Fields& fields);
    void rest(const Fields& fields);
    void idle(const Fields& fields);
    void blink(const Fields& fields);
    void look(const Fields& fields);
    void mouth(const Fields& fields);
    void gesture(const Fields& fields);
    void track(const Fields& fields);

    [[nodiscard]] int boneNamed(const QString& id) const;
    [[nodiscard]] Place placeOf(const Fields& fields) const;
    [[nodiscard]] double valueOf(const Place& place, const QString& text) const;
    [[nodiscard]] Key key(const Place& place, const QString& text, double after) const;

    Rig rig_;
    Inside inside_ = Inside::Nothing;
    QHash<QString, int> counts_; ///< of the elements read, by their names
    QStringList switches_;       ///< "slot" or "layer" and the name
    std::vector<qint64> drawLines_;
    qsizetype keys_ = 0; ///< of all tracks
    qint64 line_ = 0;    ///< of the element being read
};

} // namespace rig
