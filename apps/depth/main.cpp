#include "arguments.h"

#include <QCoreApplication>

#include <clocale>
#include <iostream>

int main(int argc, char** argv)
{
    std::setlocale(LC_CTYPE, "");
    QCoreApplication application(argc, argv);
    return runDepth(argc, argv, std::cout, std::cerr);
}
