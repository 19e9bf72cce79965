#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <stdexcept>

class QWidget;

namespace narrator {

/// The host as the game sees it. Every call returns at once; Play and Speak queue their request behind
/// those made before, Stop drops the one being carried out and all that wait. Any name and any text is
/// accepted: a gesture that the character does not have is passed over.
class Character
{
public:
    Character() = default;
    Character(const Character&) = delete;
    Character& operator=(const Character&) = delete;
    virtual ~Character() = default;

    virtual void Show() = 0;
    virtual void Stop() = 0;
    virtual void Play(const QString& animation) = 0;
    virtual void Speak(const QString& text) = 0;
};

/// Thrown when a character cannot be loaded or is not there.
class LoadFailure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The characters that a form has loaded, by the identifier given to Load.
class Characters : public QObject
{
public:
    using QObject::QObject;

    /// Reads the character in the file at `path`. Throws LoadFailure if the file is missing or unusable.
    virtual void Load(const QString& id, const QString& path) = 0;

    /// The character loaded as `id`, valid as long as this object. Throws LoadFailure if there is none.
    virtual Character& Item(const QString& id) = 0;
};

/// Makes the (still empty) characters of a form; the form is the owner of the host's window.
using CharactersFactory = std::function<std::unique_ptr<Characters>(QWidget& form)>;

} // namespace narrator
