// The commands that read or write attributes. What they need of the XML library lies in a module of its own, which is
// loaded when one of them runs.
#pragma once

#include <string>
#include <vector>

// kolma devmode show. exitNotValid for an area whose header is not ours.
int showArea(const std::u16string& file, bool json);

// kolma devmode from-ticket: the ticket's settings as an area, which the driver's module has accepted.
int ticketToArea(const std::u16string& ticket, const std::u16string& output);

// kolma devmode to-ticket. exitNotValid for an area whose header is not ours.
int areaToTicket(const std::u16string& file, const std::u16string& output);

// kolma ticket show
int showTicket(const std::u16string& file, bool json);

// kolma ticket check: prints what the printer cannot do of the tickets. exitNotValid when that is anything.
int checkTickets(const std::vector<std::u16string>& files, const std::u16string& printer, bool json);

// kolma ticket fix: prints the same report and, when `agrees` is set, writes the repaired ticket. exitNotValid when
// there are problems and nothing was written.
int fixTicket(const std::u16string& file, const std::u16string& printer, const std::u16string& output, bool agrees);
