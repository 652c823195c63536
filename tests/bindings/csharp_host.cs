// Makes the calls of the rows, whose program is Rows.cs, and some of its own.
using System;
using System.IO;
using System.Runtime.InteropServices;
using KezLib;

static class Expect
{
    public static int Failures, Refusals;
    static string place;
    static int position;

    [StructLayout(LayoutKind.Explicit)]
    struct Word
    {
        [FieldOffset(0)] public uint Bits;
        [FieldOffset(0)] public float Value;
    }

    public static float Single(uint bits)
    {
        return new Word { Bits = bits }.Value;
    }

    static uint Bits(float value)
    {
        return new Word { Value = value }.Bits;
    }

    public static void Begin(string where)
    {
        place = where;
        position = 0;
    }

    static void That(bool holds, string what)
    {
        ++position;
        if (holds)
            return;
        ++Failures;
        Console.Error.WriteLine("{0}: {1}. result: {2}", place, position, what);
    }

    public static void Is(float got, uint bits)
    {
        That(Bits(got) == bits, string.Format("{0} for {1}", got, Single(bits)));
    }

    public static void Is(int got, uint bits)
    {
        That(unchecked((uint)got) == bits, string.Format("{0} for {1}", got, unchecked((int)bits)));
    }

    public static void IsNear(float got, double value, double tolerance)
    {
        That(Math.Abs(got - value) <= tolerance, string.Format("{0} for {1}", got, value));
    }

    public static void IsNotANumber(float got)
    {
        That(float.IsNaN(got), got + " for not-a-number");
    }

    public static void IsZero(float got)
    {
        That(got == 0, got + " for 0");
    }

    public static void Refused(long extent, string name, Action call)
    {
        ++Refusals;
        string message = "nothing";
        try
        {
            call();
        }
        catch (ArgumentException refusal)
        {
            message = refusal.ParamName + ": " + refusal.Message;
        }
        string wanted = name + " holds " + (extent - 1) + " of " + extent + " entries";
        That(message.StartsWith(name + ": " + wanted), message + " for " + wanted);
    }
}

static class Host
{
    static void WithoutAnArray()
    {
        Expect.Begin("no array");
        try
        {
            Routines.kezord(null, 0);
            Expect.Is(0, 1);
        }
        catch (ArgumentNullException refusal)
        {
            Expect.Is(refusal.ParamName == "x" ? 1 : 0, 1);
        }
    }

    // The garbage that the callback makes must not take the delegate with it, and what it throws
    // must come out behind the library.
    static void WithACallbackThatThrows()
    {
        Expect.Begin("a callback that throws");
        int status = 7, calls = 0, count;
        float[] zero = {0, 0, 0};
        try
        {
            Routines.kezpnl(0, 0, 0, 1, 0, 0, zero, zero, i =>
            {
                GC.Collect();
                GC.WaitForPendingFinalizers();
                if (++calls == 2)
                    throw new InvalidDataException("no such point");
                return 0;
            }, 3, 1, ref status, out count, new int[3]);
            Expect.Is(0, 1);
        }
        catch (InvalidDataException)
        {
            Expect.Is(calls, 2);
        }
    }

    static int Main()
    {
        TextWriter console = Console.Out;
        Console.SetOut(TextWriter.Null);
        foreach (Action call in Rows.Calls)
            call();
        foreach (Action call in Rows.ShortCalls)
            call();
        WithoutAnArray();
        WithACallbackThatThrows();
        console.WriteLine("{0} calls, {1} refused ones, {2} failures", Rows.Calls.Length,
                          Expect.Refusals, Expect.Failures);
        return Expect.Failures == 0 ? 0 : 1;
    }
}
