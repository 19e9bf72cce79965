#pragma once

#include "rig/character_file.h"

namespace sample {

/// A small character file: one element a line, an arm with two hands and one gesture under all names.
/// Greet takes a second: the arm is raised to 90 degrees at 200 ms, the hand open from 100 to 900 ms.
inline QByteArray character()
{
    QByteArray mouths;
    for (const QByteArray& shape : QByteArray("Rest M F T S E O U").split(' '))
        mouths += "<h:mouth shape='" + shape + "' part='lip'/>";
    QByteArray aliases;
    const QByteArray names =
        "Alert Announce announce blink confused Congratulate Congratulate_2 Decline DoMagic1 DoMagic2 "
        "Explain Search RestPose GestureDown Sad sad Show suggest Think think Thinking Uncertain";
    for (const QByteArray& name : names.split(' '))
        aliases += "<h:gesture name='" + name + "' same='Greet'/>";
    return QByteArray(
               R"(<svg xmlns="http://www.w3.org/2000/svg" xmlns:h="urn:host-character:1" viewBox='0 0 40 44'>
<metadata><h:character version='1' name='Small' size='200 220'>
<h:bone id='root' at='20 22'/>
<h:bone id='arm' parent='root' at='30 22'/>
<h:draw part='body' bone='root'/>
<h:draw part='fist' bone='arm' slot='hand' layer='arm'/>
<h:draw part='open' bone='arm' slot='hand' layer='arm'/>
<h:draw part='lip' bone='root' slot='mouth'/><h:draw part='yell' bone='root' slot='mouth'/>
<h:rest slot='hand' value='fist'/><h:rest slot='mouth' value='lip'/>
<h:rest bone='arm' ch='rot' value='10'/>
<h:idle bone='root' ch='y' amp='2' ms='4000'/>
<h:blink bone='arm' ch='sy' value='0.5'/><h:look bone='arm' x='4' y='-3'/>
<h:mouth shape='A' part='yell'/>%1
<h:gesture name='Greet' ms='1000'>
<h:track bone='arm' ch='rot' keys='200 90 lin; 600 90; 1000 * lin'/>
<h:track slot='hand' keys='100 open; 900 *'/>
<h:track layer='arm' keys='100 -1; 900 *'/>
</h:gesture>
%2
</h:character></metadata>
<defs><linearGradient id='gold'><stop offset='0' stop-color='#fc0'/></linearGradient></defs>
<g id='body'><rect x='10' y='10' width='20' height='30' fill='#084'/><rect y='4' width='2' height='2' opacity='0'/></g>
<g id='fist'><path d='M28 22 L32 22 30 40 Z' fill='url(#gold)'/></g>
<g id='open'><circle cx='30' cy='36' r='4'/></g>
<g id='lip'><ellipse cx='20' cy='15' rx='4' ry='1'/></g><g id='yell'><circle cx='20' cy='15' r='3'/></g>
</svg>
)")
        .replace("%1", mouths)
        .replace("%2", aliases);
}

inline rig::Rig rig()
{
    return rig::readCharacter(character(), "sample").rig;
}

} // namespace sample
