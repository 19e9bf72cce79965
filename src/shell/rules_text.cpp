#include "shell/rules_text.h"

#include "toolkit/author.h"

namespace shell {

// The spelling is the show's own.
QString rulesText()
{
    static constexpr char16_t text[] = uR"(The rules and Instructions for the game are as follows:

A person will be asked a total of 15 guestions with three stages where
he takes away the prize money uptil that stage. The 15 different
stages are:

15> 1,00,00,000
14>   50,00,000
13>   25,00,000
12>   12,50,000
11>    6,40,000
10>    3,20,000  ~~~~Second Step~~~~~
 9>    1,60,000
 8>      80,000
 7>      40,000
 6>      20,000
 5>      10,000  ~~~~First Step~~~~~
 4>       5,000
 3>       3,000
 2>       2,000
 1>       1,000

Each Question will be given 4 options to choose from.
A>  B>  C>  D>

The player has to choose the correct answer to go to the next stage.

In case the user does'nt know the answer he can use his lifelines
whish are provided as a part of the game to him.

The Lifelines are:
1. Statitics Poll
2.  Ask A Friend
3.  50 50

In Statitics Poll the user will be shown a graph which will contain the
statitics of the answer selection of that question by all the earlier
constestents. The contenstant has to then choose the correct
answer
with or without the help of graph.

In Ask A Friend the contestant will be given a time of 10 seconds to
ask the answer to anybody sitting besides him.

In fifty fifty two of the wrong answers are cut off and the user is
asked to choose only the correct out of the available.

If the user looses anywhere in between he takes with himself the
minimum amount that the step shows to which he has reached.

If the user wishes he can quit anywhere in between and take with him
the amount he has won so far.

Best Of Luck!!

@AUTHOR@
This game has been developed just for Fun. Under no circumstances the constentant may claim the prize money or a part of it. If you agree only then proceed to play else quit immediately.
)";
    return QString::fromUtf16(text).replace("@AUTHOR@", toolkit::author::name);
}

} // namespace shell
