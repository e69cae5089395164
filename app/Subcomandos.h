#pragma once
// The host's subcommands. Each takes the words after its name and returns the
// process's exit code; messages for the user go to standard error.

#include <QStringList>

namespace consultas::host {

int CmdAbrir(const QStringList& args);
int CmdDemo(const QStringList& args);
int CmdEjecutar(const QStringList& args);
int CmdVista(const QStringList& args);

} // namespace consultas::host
