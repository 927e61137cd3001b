// What a test expects of a failure: its class, its code and its words, told as UTF-8 so that a difference can be read.
#pragma once

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/text.h"

#include <gtest/gtest.h>
#include <string>
#include <typeinfo>

// Runs the body, which must raise exactly this class, and returns the message.
template <typename Failure, typename Body>
std::string messageOf(Body&& body) {
    try {
        body();
    } catch (const Failure& failure) {
        EXPECT_EQ(typeid(failure), typeid(Failure));
        EXPECT_TRUE(failure.getMessage().ends_with(u"\r\n"));
        return toUtf8(failure.getMessage());
    } catch (const std::exception& failure) {
        ADD_FAILURE() << "raised " << typeid(failure).name() << ": " << failure.what();
        return {};
    }
    ADD_FAILURE() << "nothing was raised";
    return {};
}

// "017:000" when the body raises a failure of the family; "" when it raises nothing.
template <typename Body>
std::string errorCodeOf(Body&& body) {
    try {
        body();
    } catch (const KolmaException& failure) {
        return toUtf8(failure.getErrorCode());
    }
    return {};
}
