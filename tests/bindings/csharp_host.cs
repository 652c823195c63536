// Makes the calls of Rows.cs, whose results it prints in bits, and some of its own.
using System;
using System.IO;
using System.Runtime.InteropServices;
using KezLib;

static class Host
{
    static readonly TextWriter results = Console.Out;
    static int refusals, failures;

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

    public static void Begin(int call)
    {
        results.Write("{0}{1}", call == 0 ? "" : "\n", call);
    }

    public static void Print(params int[] values)
    {
        foreach (int value in values)
            results.Write(" {0:x8}", value);
    }

    public static void Print(params float[] values)
    {
        foreach (float value in values)
            results.Write(" {0:x8}", new Word { Value = value }.Bits);
    }

    static void That(bool holds, string what)
    {
        if (holds)
            return;
        ++failures;
        Console.Error.WriteLine(what);
    }

    public static void Refused(string place, long extent, string name, Action call)
    {
        ++refusals;
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
        That(message.StartsWith(name + ": " + wanted),
             string.Format("{0}: {1} for {2}", place, message, wanted));
    }

    static void WithoutAnArray()
    {
        string name = "none";
        try
        {
            Routines.kezord(null, 0);
        }
        catch (ArgumentNullException refusal)
        {
            name = refusal.ParamName;
        }
        That(name == "x", "no array: " + name);
    }

    // The garbage that the callback makes must not take the delegate with it, and what it throws
    // must come out behind the library.
    static void WithACallbackThatThrows()
    {
        int status = 7, calls = 0, count;
        float[] zero = {0, 0, 0};
        bool thrown = false;
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
        }
        catch (InvalidDataException)
        {
            thrown = true;
        }
        That(thrown && calls == 2, "a callback that throws: " + calls + " calls");
    }

    static int Main()
    {
        Console.SetOut(TextWriter.Null);
        foreach (Action call in Rows.Calls)
            call();
        results.WriteLine();
        results.Flush();
        foreach (Action call in Rows.ShortCalls)
            call();
        WithoutAnArray();
        WithACallbackThatThrows();
        Console.Error.WriteLine("{0} short arrays, {1} failures", refusals, failures);
        return failures == 0 ? 0 : 1;
    }
}
