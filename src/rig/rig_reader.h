#pragma once

#include "rig/rig.h"

#include <QSet>
#include <QString>
#include <QStringList>
#include <QXmlStreamReader>

#include <utility>
#include <vector>

namespace rig {

/// Builds a rig from the elements in the metadata of a character file, read one after another.
/// Every call throws Defect if the element breaks a rule.
class RigReader
{
public:
    void start(const QString& name, const QXmlStreamAttributes& attributes, qint64 line);
    void end(const QString& name, qint64 line);

    /// What has been read, once the whole file has been seen. `parts` are the groups of the drawing.
    [[nodiscard]] Rig finish(const QSet<QString>& parts, const QRectF& drawing) const;

private:
    class Fields;
    enum class Inside { Nothing, Character, Gesture, Alias, Done };

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
    [[nodiscard]] std::pair<int, Channel> channelNamed(const Fields& fields) const;
    [[nodiscard]] int drawInSlot(int slot, const QString& part) const;
    /// The keys of a track, as they are written.
    [[nodiscard]] QStringList keyTexts(const QString& text);
    [[nodiscard]] std::vector<Key> keys(const QString& text);
    [[nodiscard]] std::vector<Step> steps(const Steps& track, const QString& text);
    [[nodiscard]] double keyTime(const QString& text, double after) const;

    Rig rig_;
    Inside inside_ = Inside::Nothing;
    QString open_; ///< the element without content that is open, if one is
    std::vector<qint64> drawLines_;
    QSet<int> shapes_;
    qsizetype keys_ = 0; ///< of all tracks
    qint64 line_ = 0;    ///< of the element being read
    qint64 endLine_ = 0; ///< of the character
};

} // namespace rig
