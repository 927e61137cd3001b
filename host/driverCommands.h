// kolma drivers
#pragma once

int listDrivers(bool json);
