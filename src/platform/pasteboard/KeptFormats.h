#pragma once

#include <QList>
#include <QStringList>

/// What is kept of a copy in case its owner dies.
namespace KeptFormats {

/// What to ask an owner for that offers `offered`, the most useful first. Of each list the first
/// format that can be had stands for the others. Left out are `had`, what carries no contents,
/// what changes the owner when it is asked for, and what is a number or an address that means
/// nothing without it.
QList<QStringList> plan(const QStringList &offered, const QStringList &had);

} // namespace KeptFormats
